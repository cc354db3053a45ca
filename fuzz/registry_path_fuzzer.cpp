// The input is a key's path. A key can be made and found again under it, keeps a value, and goes
// with what is below; a path that begins with a separator is refused.

#include "check.h"
#include "misc/registry.h"
#include "scratch_machine.h"

#include <algorithm>
#include <string>

namespace {

using nrd::misc::text32;

/// Whether something stands in front of the first separator, behind a root if there is one;
/// separators at the end do not count.
bool is_well_formed(text32 path)
{
    path.erase(path.find_last_not_of(U'\\') + 1);
    for (const char32_t* const root : {U"HKEY_LOCAL_MACHINE\\", U"HKEY_CLASSES_ROOT\\"}) {
        if (path.starts_with(root)) {
            path.erase(0, text32(root).size());
            break;
        }
    }
    return !path.starts_with(U'\\');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace nrd::misc;
    scratch_machine();
    const text32 path = to_text32(std::string_view(reinterpret_cast<const char*>(data), size));
    // Surrogates have no place in the file that stands for the registry.
    if (std::any_of(path.begin(), path.end(),
                    [](char32_t c) { return c >= 0xD800 && c < 0xE000; })) {
        return 0;
    }
    if (!is_well_formed(path)) {
        check(!create_key(path), "no key can be made");
        check(!key_exists(path), "no key is there");
        return 0;
    }
    check(create_key(path), "a key can be made");
    check(key_exists(path), "a key that was made is there");
    check(set_string_value(path, U"name", U"data"), "a value can be set");
    check(read_value(path, U"name") == U"data", "a value is kept");
    check(delete_value(path, U"name", 0), "a value can be deleted");
    check(!value_exists(path, U"name"), "a deleted value is gone");
    if (delete_key(path)) {
        check(!key_exists(path), "a deleted key is gone");
    }
    std::filesystem::remove(scratch_machine() / "registry.json");
    return 0;
}
