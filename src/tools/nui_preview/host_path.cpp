#include "tools/nui_preview/host_path.h"

#include "tools/nui_preview/failure.h"

#include <fstream>
#include <iterator>

namespace nrd::tools::preview {

namespace {

std::string name_of(const std::filesystem::path& path)
{
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

} // namespace

std::filesystem::path host_path(const std::string& name)
{
    return {std::u8string(name.begin(), name.end())};
}

std::string absolute_name(const std::string& name)
{
    return name_of(std::filesystem::absolute(host_path(name)).lexically_normal());
}

std::string resources_of(const std::string& file)
{
    const std::filesystem::path own = host_path(absolute_name(file)).parent_path();
    for (std::filesystem::path folder = own; folder.has_relative_path();
         folder = folder.parent_path()) {
        if (folder.filename() == "resources") {
            return name_of(folder);
        }
    }
    return name_of(own);
}

std::string read_file(const std::string& name)
{
    // A folder can be opened on some systems, and only reading it fails.
    std::ifstream stream;
    if (!std::filesystem::is_directory(host_path(name))) {
        stream.open(host_path(name), std::ios::binary);
    }
    std::string content(std::istreambuf_iterator<char>(stream), {});
    if (!stream.is_open() || stream.bad()) {
        throw failure("The file " + name + " cannot be read.");
    }
    return content;
}

void write_file(const std::string& name, const std::string& content)
{
    std::ofstream stream(host_path(name), std::ios::binary);
    stream << content;
    stream.close();
    if (stream.fail()) {
        throw failure("The file " + name + " cannot be written.");
    }
}

} // namespace nrd::tools::preview
