#include "inst/installer/core/registry_records.h"

#include "inst/installer/core/engine_fixture.h"
#include "inst/installer/core/install_error.h"
#include "misc/registry.h"
#include "support/denied_key.h"

namespace nrd::installer::core {
namespace {

using installation::reg_key;

class registry_records : public engine {
protected:
    registry_records()
    {
        spec_.ensure_var(U"KEY", key_.path());
        spec_.ensure_var(U"X", U"a/b");
    }

    /// What the key holds afterwards.
    std::string installed(const std::vector<reg_key>& keys)
    {
        install_reg_keys(keys, spec_, observer_);
        return test::registry_text(key_.path());
    }

    installation::spec spec_;
};

TEST_F(registry_records, every_field_is_expanded_and_keys_are_made)
{
    EXPECT_EQ(installed({{U"${KEY}/Sub", "n/${X}", U"http://${X}", {}},
                         {U"${KEY}\\Sub", "", U"default", {}},
                         {U"${KEY}\\Sub", "empty", U"", {}},
                         {U"${KEY}\\Sub", "n\\a\\b", U"last", {1, 2}}}),
              "[Sub]\n(default) = default\nempty = \nn\\a\\b = last\n");
    EXPECT_EQ(observer_.events(), "");
}

TEST_F(registry_records, an_element_0_deletes_the_value_by_the_path_as_it_is_stored)
{
    misc::create_key(key_ / U"Sub");
    misc::create_key(key_ / U"Gone");
    misc::set_string_value(key_ / U"Sub", U"a", U"1");
    misc::set_string_value(key_ / U"Sub", U"b", U"2");
    EXPECT_EQ(installed({{key_ / U"Sub", "a", U"x", {1, 0}},
                         {key_ / U"Sub", "missing", U"x", {0}},
                         {key_ / U"Gone", "", U"x", {0}},
                         {U"${KEY}\\Sub", "b", U"x", {0}}}),
              "[Sub]\nb = 2\n");
}

TEST_F(registry_records, a_refused_key_is_asked_about_at_each_access_and_left_out_or_ends_the_run)
{
    misc::create_key(key_ / U"Denied");
    auto denied = std::make_unique<test::denied_key>(key_ / U"Denied");
    const auto ended_at = [this](int refused) {
        int asked = 0;
        observer_.answer = [&](const auto& event) {
            return event.id == "not_running_as_admin" && ++asked != refused;
        };
        try {
            install_reg_keys({{key_ / U"Denied", "a", U"1", {}}, {key_.path(), "b", U"2", {}}},
                             spec_, observer_);
        } catch (const install_error& error) {
            EXPECT_EQ(error.code, install_error::not_running_as_admin);
            return asked;
        }
        return 0;
    };
    EXPECT_EQ(ended_at(1), 1);
    EXPECT_EQ(ended_at(2), 2);
    EXPECT_EQ(ended_at(3), 3);
    EXPECT_EQ(ended_at(4), 0);
    denied.reset();
    EXPECT_EQ(test::registry_text(key_.path()), "b = 2\n[Denied]\n");
}

TEST_F(registry_records, a_key_that_is_not_there_to_write_to_is_asked_about)
{
    // It cannot be made while it is denied, and is gone by the time of the writing.
    misc::create_key(key_ / U"Gone");
    auto denied = std::make_unique<test::denied_key>(key_ / U"Gone");
    observer_.answer = [&, asked = 0](const installation::install_event&) mutable {
        if (++asked == 2) {
            denied.reset();
            misc::delete_key(key_ / U"Gone");
        }
        return true;
    };
    EXPECT_EQ(installed({{key_ / U"Gone", "a", U"1", {}}}), "");
    EXPECT_EQ(observer_.events(),
              "not_running_as_admin\nnot_running_as_admin\nreg_key_does_not_exist\n");
}

} // namespace
} // namespace nrd::installer::core
