#include "support/denied_key.h"

#include "support/posix/machine_list_entry.h"

namespace nrd::test {

struct denied_key::restorer {
    machine_list_entry entry;
};

denied_key::denied_key(const misc::text32& path)
    : restorer_(new restorer{{"denied_keys", misc::to_utf8(path)}})
{
}

denied_key::~denied_key() = default;

} // namespace nrd::test
