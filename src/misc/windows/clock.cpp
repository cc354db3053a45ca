#include "misc/clock.h"

#include <windows.h>

namespace nrd::misc {

local_time get_local_time()
{
    SYSTEMTIME parts = {};
    GetLocalTime(&parts);
    return {parts.wYear, parts.wMonth, parts.wDay, parts.wHour, parts.wMinute, parts.wSecond};
}

} // namespace nrd::misc
