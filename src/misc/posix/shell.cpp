#include "misc/shell.h"

#include "misc/file_system.h"

namespace nrd::misc {

namespace {

/// There is no shell to open a link; the file says where it leads.
class text_link final : public shell_link {
public:
    bool save(const path& link, const text32& destination) override
    {
        std::ofstream file = open_for_writing(link);
        file << to_utf8(destination) << '\n' << std::flush;
        return file.good();
    }
};

} // namespace

std::unique_ptr<shell_link> shell_link::make()
{
    return std::make_unique<text_link>();
}

} // namespace nrd::misc
