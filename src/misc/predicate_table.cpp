#include "misc/predicate_table.h"

namespace nrd::misc {

std::map<std::string, predicate>& predicate_table()
{
    static auto* const table = new std::map<std::string, predicate>;
    return *table;
}

} // namespace nrd::misc
