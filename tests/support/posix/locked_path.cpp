#include "support/locked_path.h"

#include "support/posix/machine_list_entry.h"

namespace nrd::test {

struct locked_path::holder {
    machine_list_entry entry;
};

locked_path::locked_path(const misc::path& locked)
    : holder_(new holder{{"locked", misc::to_utf8(locked)}})
{
}

locked_path::~locked_path() = default;

} // namespace nrd::test
