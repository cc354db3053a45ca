#pragma once

#include "inst/installation/spec.h"
#include "tools/uninstaller/file_removal.h"

namespace nrd::uninstaller {

/// True for a value of the product's own entry in the system's list of installed programs.
bool is_uninstall_entry(const installation::spec& s, const installation::reg_key& key);

/// Removes the value, and its key and those above if they are empty then. What else lies in the key
/// stays, also where the record has no name and so stands for the key's default value.
void remove_value(const installation::spec& s, const installation::reg_key& key, leftovers& left);

/// Takes the product's folders out of the path index, unless another folder has taken the place.
void remove_path_entries(const installation::spec& s, leftovers& left);

} // namespace nrd::uninstaller
