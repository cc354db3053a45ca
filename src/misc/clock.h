#pragma once

namespace nrd::misc {

/// The wall clock in the user's time zone, in whole seconds; months and days count from 1.
struct local_time {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

local_time get_local_time();

} // namespace nrd::misc
