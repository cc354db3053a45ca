#pragma once

#include "misc/registry_data.h"
#include "misc/text.h"

#include <exception>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace nrd {

/// The root of the errors that are this program's own.
class exception : public std::exception {
public:
    explicit exception(std::string message) : message_(std::move(message)) {}
    [[nodiscard]] const char* what() const noexcept override { return message_.c_str(); }

private:
    std::string message_;
};

} // namespace nrd

namespace nrd::misc {

/// An access to the registry that was refused, or a value written to a key that is not there.
class registry_error : public nrd::exception {
public:
    static constexpr int access_denied = 0;
    static constexpr int key_not_found = 1;

    registry_error(int code, const text32& path);
    [[nodiscard]] int code() const { return code_; }
    [[nodiscard]] const text32& path() const { return path_; }

private:
    int code_;
    text32 path_;
};

// A key is named by one text whose first component may be a root, HKEY_LOCAL_MACHINE or
// HKEY_CLASSES_ROOT. Any other first component, a root of another name included, is a subkey of
// HKEY_LOCAL_MACHINE. On a 64-bit Windows all of it is the 64-bit view.
//
// All of these throw registry_error with access_denied if the system denies the access; every other
// failure gives false or an empty result.

bool key_exists(const text32& path);
bool value_exists(const text32& path, const text32& name);

/// String values only, expandable ones as they are stored; empty text for one of more than 1023
/// UTF-16 units.
text32 read_value(const text32& path, const text32& name);
/// Empty text for a value that is absent; an empty map if the key is.
std::map<text32, text32> read_values(const text32& path, const std::vector<text32>& names);

/// The data of a value of whatever type and length; nothing if it is absent.
std::optional<registry_data> read_data(const text32& path, const text32& name);

std::vector<text32> value_names(const text32& path);
/// Ordered by upper-cased names.
std::vector<text32> subkey_names(const text32& path);

/// Makes the key and those above it; true also if it was there.
bool create_key(const text32& path);
/// Throws registry_error with key_not_found if the key does not exist.
bool set_string_value(const text32& path, const text32& name, const text32& text);
/// With all that lies below it.
bool delete_key(const text32& path);
/// With `flag` other than 0 the key goes as well if nothing is left in it.
bool delete_value(const text32& path, const text32& name, int flag);

/// The key by which the system lists the installed program `name`.
text32 uninstall_key(const text32& name);

} // namespace nrd::misc
