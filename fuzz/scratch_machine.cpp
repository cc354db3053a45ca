#include "scratch_machine.h"

#include <cstdlib>
#include <string>

namespace {

class scratch_folder {
public:
    scratch_folder()
    {
        const bool has_memory = std::filesystem::is_directory("/dev/shm");
        std::string name = (has_memory ? std::filesystem::path("/dev/shm")
                                       : std::filesystem::temp_directory_path()) /
                           "vs5_fuzz_XXXXXX";
        if (mkdtemp(name.data()) == nullptr) {
            std::abort();
        }
        path_ = name;
        setenv("VS5_MACHINE", name.c_str(), 1);
    }
    ~scratch_folder() { std::filesystem::remove_all(path_); }
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace

const std::filesystem::path& scratch_machine()
{
    static const scratch_folder folder;
    return folder.path();
}
