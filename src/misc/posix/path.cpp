#include "misc/path.h"

#include <algorithm>

namespace nrd::misc {

namespace {

constexpr std::u16string_view separators = u"/\\";

bool is_separator(char16_t c)
{
    return c == u'/' || c == u'\\';
}

} // namespace

path::path(const char* ascii) : text_(to_utf16(std::string_view(ascii))) {}

path& path::operator/=(const path& other)
{
    if (other.empty()) {
        return *this;
    }
    // A drive takes what follows without a separator: "C:" and "x" make "C:x".
    const bool joined = empty() || is_separator(text_.back()) || text_.back() == u':' ||
                        is_separator(other.text_.front());
    if (!joined) {
        text_ += preferred_separator;
    }
    text_ += std::u16string(other.text_);
    return *this;
}

path& path::operator+=(const path& other)
{
    text_ += std::u16string(other.text_);
    return *this;
}

path& path::make_preferred()
{
    std::replace(text_.begin(), text_.end(), u'/', preferred_separator);
    return *this;
}

std::size_t path::root_name_length() const
{
    const std::size_t size = text_.size();
    const bool two_separators = size >= 2 && is_separator(text_[0]) && is_separator(text_[1]);
    if (two_separators && size == 2) {
        return 2;
    }
    if (two_separators && !is_separator(text_[2])) {
        return std::min(text_.find_first_of(separators, 2), size);
    }
    // Any name before a colon counts, as devices have longer names than drives ("COM1:").
    const std::size_t end = text_.find_first_of(u"/\\:");
    return end != text_.npos && text_[end] == u':' ? end + 1 : 0;
}

std::size_t path::root_directory_at() const
{
    const std::size_t at = root_name_length();
    const bool is_device = at > 0 && text_[at - 1] == u':' && at != 2;
    // Behind the name of a device a separator is no root.
    return !is_device && at < text_.size() && is_separator(text_[at]) ? at : text_.npos;
}

std::vector<path::piece> path::pieces() const
{
    std::vector<piece> found;
    const std::size_t size = text_.size();
    std::size_t at = root_name_length();
    if (at > 0) {
        found.push_back({0, at, false});
    }
    if (root_directory_at() == at) {
        found.push_back({at, 1, false});
    }
    at = std::min(text_.find_first_not_of(separators, at), size);
    while (at < size) {
        const std::size_t end = std::min(text_.find_first_of(separators, at), size);
        found.push_back({at, end - at, false});
        at = std::min(text_.find_first_not_of(separators, end), size);
        if (at == size && end < size) {
            found.push_back({size - 1, 1, true});
        }
    }
    return found;
}

path path::piece_text(const piece& p) const
{
    return p.is_trailing_dot ? path(u".") : path(text_.substr(p.begin, p.length));
}

path path::root_name() const
{
    return path(text_.substr(0, root_name_length()));
}

path path::root_directory() const
{
    const std::size_t at = root_directory_at();
    return at == text_.npos ? path() : path(text_.substr(at, 1));
}

path path::root_path() const
{
    return path(root_name().text_ + root_directory().text_);
}

path path::relative_path() const
{
    const std::size_t root_end = root_name_length();
    return path(
        text_.substr(std::min(text_.find_first_not_of(separators, root_end), text_.size())));
}

path path::parent_path() const
{
    const std::vector<piece> all = pieces();
    if (all.size() < 2) {
        return {};
    }
    const piece& before = all[all.size() - 2];
    return path(text_.substr(0, before.begin + before.length));
}

path path::filename() const
{
    const std::vector<piece> all = pieces();
    return all.empty() ? path() : piece_text(all.back());
}

path path::stem() const
{
    path name = filename();
    const std::size_t dot = name.text_.rfind(u'.');
    if (name.text_ == u"." || name.text_ == u".." || dot == name.text_.npos) {
        return name;
    }
    return path(name.text_.substr(0, dot));
}

path path::extension() const
{
    const path name = filename();
    const std::size_t dot = name.text_.rfind(u'.');
    if (name.text_ == u"." || name.text_ == u".." || dot == name.text_.npos) {
        return {};
    }
    return path(name.text_.substr(dot));
}

/// The root directory counts as "/", whichever way it was written.
std::vector<std::u16string> path::components() const
{
    std::vector<std::u16string> result;
    for (const piece& p : pieces()) {
        const bool is_root_directory =
            !p.is_trailing_dot && is_separator(text_[p.begin]) && p.length == 1;
        result.push_back(is_root_directory ? u"/" : piece_text(p).text_);
    }
    return result;
}

int path::compare(const path& other) const
{
    const std::vector<std::u16string> mine = components();
    const std::vector<std::u16string> theirs = other.components();
    if (mine == theirs) {
        return 0;
    }
    return mine < theirs ? -1 : 1;
}

path to_path(std::u32string_view text)
{
    return path(to_utf16(text));
}

path to_path(std::string_view utf8)
{
    return path(to_utf16(utf8));
}

template <std::same_as<path> Path> text32 to_text32(const Path& p)
{
    return to_text32(p.native());
}

template text32 to_text32(const path& p);

} // namespace nrd::misc
