#pragma once

namespace nrd::tools::preview {

/// One step of the run loop, and a frame.
void turn();
/// Turns until sizes and events have come to rest, so that what is drawn is what will stay.
void settle();
/// The run loop at its own pace, until the time is over or the toolkit quits.
void run_for(double seconds);

} // namespace nrd::tools::preview
