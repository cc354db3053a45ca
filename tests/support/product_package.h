#pragma once

#include "inst/installation/spec.h"
#include "support/package_builder.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace nrd::test {

/// Packages that install into a folder of their own, and what the system knows of them afterwards,
/// which is removed again.
class product_package : public testing::Test {
protected:
    product_package();
    ~product_package() override;

    /// A product "Product <name>" with one file, its name in it.
    installation::spec product(const std::string& name);
    /// One whose source is missing.
    installation::spec broken_product(const std::string& name);
    /// What lies where the products go.
    [[nodiscard]] std::string installed() const;

    temp_folder folder_;

private:
    package_builder begin(const std::string& name);
    static misc::text32 app_name(const std::string& name);

    std::vector<misc::text32> names_;
};

} // namespace nrd::test
