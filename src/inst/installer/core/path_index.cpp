#include "inst/installer/core/path_index.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"

#include <charconv>
#include <string_view>

namespace nrd::installer::core {

namespace {

/// Cuts the text up to the next TAB off `rest`.
std::string_view take_field(std::string_view& rest)
{
    const std::size_t end = rest.find('\t');
    const std::string_view field = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    return field;
}

std::uint64_t read_number(std::string_view digits)
{
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() ? value : 0;
}

} // namespace

path_index read_path_index(std::istream& in)
{
    path_index index;
    for (std::string line; std::getline(in, line);) {
        std::string_view rest = line;
        if (rest.ends_with('\r')) {
            rest.remove_suffix(1);
        }
        const std::string_view key = take_field(rest);
        const std::uint64_t value = read_number(take_field(rest));
        index[std::string(key)] = {value, std::string(rest)};
    }
    return index;
}

void write_path_index(const path_index& index, std::ostream& out)
{
    for (const auto& [key, record] : index) {
        out << key << '\t' << record.value << '\t' << record.path << '\n';
    }
}

misc::path path_index_file()
{
    return misc::get_program_data_folder() / "Tavrolen Corporation" / "tvl_path_index.txt";
}

void add_path_index_entry(const misc::text32& app_code, const misc::text32& path)
{
    std::ifstream in = misc::open_for_reading(path_index_file());
    path_index index = read_path_index(in);
    in.close();
    index[misc::to_utf8(app_code)] = {0, misc::to_utf8(path)};
    std::ofstream out = misc::open_for_writing(path_index_file());
    if (out.is_open()) {
        write_path_index(index, out);
    }
}

} // namespace nrd::installer::core
