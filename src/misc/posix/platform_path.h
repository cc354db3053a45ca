#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace nrd::misc {

/// A Windows path on a system whose own paths follow other rules. Both slashes separate, a drive or
/// a network name is the root name, and a path that ends in a separator has "." as its last
/// component. The members bear the names, and give the results, of boost::filesystem::path on
/// Windows; one table of cases holds both to that. The text is kept as it was written.
class path {
public:
    static constexpr char16_t preferred_separator = u'\\';

    path() = default;
    explicit path(std::u16string text) : text_(std::move(text)) {}
    explicit path(const char16_t* text) : text_(text) {}
    /// `ascii` is a literal of the program's own; text from elsewhere comes through to_path.
    path(const char* ascii);

    [[nodiscard]] const std::u16string& native() const { return text_; }
    [[nodiscard]] bool empty() const { return text_.empty(); }
    void clear() { text_.clear(); }

    path& operator/=(const path& other);
    path& operator+=(const path& other);
    path& make_preferred();

    [[nodiscard]] path root_name() const;
    [[nodiscard]] path root_directory() const;
    [[nodiscard]] path root_path() const;
    [[nodiscard]] path relative_path() const;
    [[nodiscard]] path parent_path() const;
    [[nodiscard]] path filename() const;
    [[nodiscard]] path stem() const;
    [[nodiscard]] path extension() const;

    [[nodiscard]] bool has_root_name() const { return !root_name().empty(); }
    [[nodiscard]] bool has_root_directory() const { return !root_directory().empty(); }
    [[nodiscard]] bool has_parent_path() const { return !parent_path().empty(); }
    [[nodiscard]] bool is_absolute() const { return has_root_name() && has_root_directory(); }
    [[nodiscard]] bool is_relative() const { return !is_absolute(); }

    /// By components, so that "a//b", "a/b" and "a\b" are equal; case counts.
    [[nodiscard]] int compare(const path& other) const;

    friend bool operator==(const path& a, const path& b) { return a.compare(b) == 0; }
    friend bool operator<(const path& a, const path& b) { return a.compare(b) < 0; }
    friend bool operator!=(const path& a, const path& b) { return a.compare(b) != 0; }
    friend path operator/(path a, const path& b) { return a /= b; }

private:
    /// A component's place in the text; the "." of a separator at the end stands at its place.
    struct piece {
        std::size_t begin = 0;
        std::size_t length = 0;
        bool is_trailing_dot = false;
    };

    [[nodiscard]] std::size_t root_name_length() const;
    [[nodiscard]] std::size_t root_directory_at() const; ///< npos without one
    [[nodiscard]] std::vector<piece> pieces() const;
    [[nodiscard]] path piece_text(const piece& p) const;
    [[nodiscard]] std::vector<std::u16string> components() const;

    std::u16string text_;
};

} // namespace nrd::misc
