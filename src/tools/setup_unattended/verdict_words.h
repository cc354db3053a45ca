#pragma once

#include "inst/installation/install_decision.h"
#include "misc/planned_changes.h"

namespace nrd::tools {

// The engine's decisions and changes in a few words, for tables and for machines alike.
const char* words_of(installation::package_verdict verdict);
const char* words_of(installation::fileset_verdict verdict);
const char* words_of(installation::shortcut_verdict verdict);
const char* words_of(misc::change_kind kind);

} // namespace nrd::tools
