#pragma once

#include "inst/installer/core/install.h"
#include "support/package_builder.h"
#include "support/recording_observer.h"
#include "support/registry_text.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <string>

namespace nrd::installer::core {

/// A package in a folder of its own, and the place on the machine where it goes. What an install
/// leaves in the system's own places is removed again.
class engine : public testing::Test {
protected:
    engine();
    ~engine() override;

    /// The variables that each spec needs, and no more.
    void add_vars();
    /// A whole product: a folder, the uninstaller and a single file; a registry value, a shortcut
    /// and a path entry.
    void add_product();
    /// A fileset of the package "main".
    void add_fileset(std::string_view in, std::string_view out);
    /// What the product's installation would find: an older one, which the system lists.
    void add_old_installation();

    /// The spec of the package as it stands.
    installation::spec spec();
    /// Installs it from its folder.
    bool run();

    /// With fixed words for what differs from run to run and from system to system.
    [[nodiscard]] std::string plain(std::string text) const;
    /// What lies where the product goes.
    [[nodiscard]] std::string programs() const;
    /// The same with all bytes.
    [[nodiscard]] std::string programs_exactly() const;
    [[nodiscard]] std::string uninstall_values() const;
    /// The one folder beside the product's; empty if there is none.
    [[nodiscard]] misc::path backup() const;

    const misc::text32 name_ = U"VS5 engine test";
    test::temp_folder folder_;
    test::scratch_key key_;
    misc::path app_ = folder_ / "Programs\\App";
    test::package_builder package_{folder_ / "package"};
    std::string filesets_;
    test::recording_observer observer_;
};

} // namespace nrd::installer::core
