#include "misc/shell.h"

#include "misc/file_system.h"
#include "misc/planned_changes.h"

namespace nrd::misc {

text32 create_shortcut(const text32& location, const text32& destination)
{
    const path link = to_path(std::u32string_view(location + U".lnk"));
    if (planned_changes* plan = planned_changes::active()) {
        error_code ec;
        create_directories(link.parent_path(), ec);
        if (ec || foreseen_refusal(link, boost::filesystem::regular_file)) {
            return {};
        }
        plan->create_shortcut(link, destination);
        return to_text32(link);
    }
    const std::unique_ptr<shell_link> shell = shell_link::make();
    if (shell == nullptr) {
        return {};
    }
    const path folder = link.parent_path();
    if (missing(folder)) {
        error_code ec;
        create_directories(folder, ec);
    }
    return shell->save(link, destination) ? to_text32(link) : text32();
}

} // namespace nrd::misc
