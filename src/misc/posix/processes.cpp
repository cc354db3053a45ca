#include "misc/processes.h"

#include "misc/file_system.h"

#include <array>
#include <charconv>
#include <dirent.h>
#include <memory>
#include <unistd.h>

namespace nrd::misc {

namespace {

struct close_directory {
    void operator()(DIR* directory) const { closedir(directory); }
};

std::string program_name(const std::string& id)
{
    std::array<char, 4096> target{};
    const std::string link = "/proc/" + id + "/exe";
    const ssize_t length = readlink(link.c_str(), target.data(), target.size());
    if (length <= 0) {
        return {};
    }
    const std::string whole(target.data(), static_cast<std::size_t>(length));
    return whole.substr(whole.rfind('/') + 1);
}

std::uint32_t number_at(const std::string& bytes, std::size_t at, std::size_t count)
{
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0 && at + i < bytes.size();) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

} // namespace

std::vector<process_entry> list_processes()
{
    std::vector<process_entry> found;
    const std::unique_ptr<DIR, close_directory> directory(opendir("/proc"));
    while (directory != nullptr) {
        const dirent* const entry = readdir(directory.get());
        if (entry == nullptr) {
            break;
        }
        const std::string id = entry->d_name;
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(id.data(), id.data() + id.size(), number);
        if (error == std::errc() && end == id.data() + id.size()) {
            found.push_back({program_name(id), number});
        }
    }
    return found;
}

std::uint32_t current_process_id()
{
    return static_cast<std::uint32_t>(getpid());
}

std::optional<std::uint32_t> query_binary_type(const path& p)
{
    // A program begins with a DOS header of 64 bytes, whose last four tell where the header of a
    // newer kind lies: "NE", or "PE" with the machine behind it and the flags at 22.
    std::ifstream file = open_for_reading(p);
    std::string head(4096, '\0');
    file.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(file.gcount()));
    if (!head.starts_with("MZ") || head.size() < 64) {
        return std::nullopt;
    }
    const std::size_t header = number_at(head, 0x3C, 4);
    const std::string mark = header < head.size() ? head.substr(header, 4) : std::string();
    if (mark.starts_with("NE")) {
        return binary_type_16bit;
    }
    if (mark != std::string("PE\0\0", 4)) {
        return binary_type_dos;
    }
    constexpr std::uint32_t is_library = 0x2000;
    if ((number_at(head, header + 22, 2) & is_library) != 0) {
        return std::nullopt;
    }
    switch (number_at(head, header + 4, 2)) {
    case 0x014c:
        return binary_type_32bit;
    case 0x8664:
        return binary_type_64bit;
    default:
        return std::nullopt;
    }
}

} // namespace nrd::misc
