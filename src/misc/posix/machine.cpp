#include "misc/posix/machine.h"

#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>

namespace nrd::misc {

namespace {

std::optional<machine>& remembered()
{
    static auto* const kept = new std::optional<machine>;
    return *kept;
}

std::filesystem::path environment_folder(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::filesystem::path() : std::filesystem::path(value);
}

/// Absolute, without a separator at the end.
std::filesystem::path whole(const std::filesystem::path& folder)
{
    const std::filesystem::path result = std::filesystem::weakly_canonical(folder);
    return result.has_filename() ? result : result.parent_path();
}

std::filesystem::path machine_folder()
{
    if (const auto named = environment_folder("VS5_MACHINE"); !named.empty()) {
        return whole(named);
    }
    std::filesystem::path data = environment_folder("XDG_DATA_HOME");
    if (data.empty()) {
        data = environment_folder("HOME") / ".local" / "share";
    }
    return whole(data / "vs5-machine");
}

machine read_machine(const std::filesystem::path& folder)
{
    machine result;
    result.folder = folder;
    std::ifstream file(folder / "machine.json");
    if (!file) {
        return result;
    }
    try {
        const nlohmann::json facts = nlohmann::json::parse(file);
        result.bits = facts.value("bits", result.bits);
        result.user = facts.value("user", result.user);
        result.language = facts.value("language", result.language);
        result.keyboard = facts.value("keyboard", result.keyboard);
        result.denied = facts.value("denied", result.denied);
        result.locked = facts.value("locked", result.locked);
        result.denied_keys = facts.value("denied_keys", result.denied_keys);
    } catch (const nlohmann::json::exception& error) {
        throw std::invalid_argument((folder / "machine.json").string() + ": " + error.what());
    }
    if (result.bits != 32 && result.bits != 64) {
        throw std::invalid_argument((folder / "machine.json").string() +
                                    ": \"bits\" is neither 32 nor 64");
    }
    return result;
}

} // namespace

const machine& this_machine()
{
    std::optional<machine>& kept = remembered();
    if (!kept) {
        kept = read_machine(machine_folder());
    }
    return *kept;
}

void forget_machine()
{
    remembered().reset();
}

} // namespace nrd::misc
