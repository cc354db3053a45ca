#include "support/folder_text.h"

#include "misc/file_system.h"
#include "support/file_content.h"

#include <algorithm>

namespace nrd::test {

namespace {

constexpr std::size_t longest_shown = 100;

std::string content_text(const misc::path& file)
{
    const std::string content = read_file(file);
    const bool plain =
        content.size() <= longest_shown &&
        std::none_of(content.begin(), content.end(), [](char c) { return c >= 0 && c < ' '; });
    return plain ? content : std::to_string(content.size()) + " bytes";
}

void append(std::string& text, const misc::path& folder, const std::string& above)
{
    for (const misc::path& entry : misc::directory_entries(folder)) {
        const std::string name = above + misc::to_utf8(entry.filename());
        if (misc::is_directory(entry)) {
            text += name + "\\\n";
            append(text, entry, name + "\\");
        } else {
            text += name + ": " + content_text(entry) + "\n";
        }
    }
}

} // namespace

std::string folder_text(const misc::path& folder)
{
    std::string text;
    if (misc::is_directory(folder)) {
        append(text, folder, "");
    }
    return text;
}

} // namespace nrd::test
