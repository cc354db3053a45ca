#include "inst/installer/core/registry_records.h"

#include "inst/installation/install_utils.h"
#include "inst/installer/core/install_error.h"
#include "misc/registry.h"

#include <algorithm>

namespace nrd::installer::core {

using installation::installer_observer;
using installation::reg_key;
using misc::registry_error;
using misc::text32;

namespace {

void ask(installer_observer& observer, const char* event, std::int32_t error_code,
         const registry_error& error)
{
    if (!observer.report({event, 0, {}})) {
        observer.decided(
            installation::failure_decision{misc::to_path(std::u32string_view(error.path())),
                                           "The registry key cannot be written"});
        throw install_error(error_code);
    }
    observer.decided(installation::refused_key_decision{error.path()});
}

void ask_if_denied(installer_observer& observer, const registry_error& error)
{
    if (error.code() == registry_error::access_denied) {
        ask(observer, "not_running_as_admin", install_error::not_running_as_admin, error);
    }
}

void ask_about(installer_observer& observer, const registry_error& error)
{
    ask_if_denied(observer, error);
    if (error.code() == registry_error::key_not_found) {
        ask(observer, "reg_key_does_not_exist", install_error::reg_key_does_not_exist, error);
    }
}

/// False also for a key that may not be looked at, which leads on to an attempt to create it.
bool guarded_key_exists(const text32& path, installer_observer& observer)
{
    try {
        return misc::key_exists(path);
    } catch (const registry_error& error) {
        ask_if_denied(observer, error);
    }
    return false;
}

void guarded_create_key(const text32& path, installer_observer& observer)
{
    try {
        misc::create_key(path);
    } catch (const registry_error& error) {
        ask_about(observer, error);
    }
}

void guarded_set_value(const text32& path, const text32& name, const text32& data,
                       installer_observer& observer)
{
    try {
        misc::set_string_value(path, name, data);
    } catch (const registry_error& error) {
        ask_about(observer, error);
    }
}

} // namespace

void install_reg_keys(const std::vector<reg_key>& keys, const installation::spec& s,
                      installer_observer& observer)
{
    for (const reg_key& key : keys) {
        const text32 path = s.expand(key.path);
        if (std::find(key.binary_data.begin(), key.binary_data.end(), 0U) !=
            key.binary_data.end()) {
            installation::delete_reg_key(key);
            continue;
        }
        if (!guarded_key_exists(path, observer)) {
            guarded_create_key(path, observer);
        }
        const text32 data = s.expand(key.data);
        const text32 name = s.expand(misc::to_text32(std::string_view(key.name)));
        guarded_set_value(path, name, data, observer);
    }
}

} // namespace nrd::installer::core
