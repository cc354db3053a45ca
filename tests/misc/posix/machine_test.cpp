#include "misc/posix/machine.h"

#include "misc/file_system.h"
#include "misc/known_folders.h"
#include "misc/planned_changes.h"
#include "misc/processes.h"
#include "misc/registry.h"
#include "misc/system_info.h"
#include "support/file_content.h"
#include "support/folder_text.h"
#include "support/posix/scratch_machine.h"

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace nrd::misc {

namespace {

using test::folder_text;
using test::scratch_machine;
using test::write_file;

TEST(machine, a_drive_is_a_folder_and_z_is_the_whole_host)
{
    const scratch_machine machine;
    write_file(to_path("C:\\A Folder\\file"), "x");
    write_file(to_path("d:/y"), "y");
    write_file(to_path("\\\\server\\share\\z"), "z");
    EXPECT_TRUE(std::filesystem::exists(machine.folder() / "c" / "A Folder" / "file"));
    EXPECT_TRUE(std::filesystem::exists(machine.folder() / "d" / "y"));
    EXPECT_TRUE(std::filesystem::exists(machine.folder() / "network" / "server" / "share" / "z"));

    EXPECT_EQ(to_utf8(canonical(to_path("//SERVER/Share/z"))), "\\\\server\\share\\z");

    const path on_host = from_host((machine.folder() / "outside").string());
    EXPECT_TRUE(to_utf8(on_host).starts_with("Z:\\")) << to_utf8(on_host);
    write_file(on_host, "o");
    EXPECT_EQ(test::read_file(on_host), "o");
    EXPECT_EQ(to_utf8(from_host((machine.folder() / "c/A Folder/../q").string())), "C:\\q");
    EXPECT_EQ(to_utf8(from_host((machine.folder() / "c").string())), "C:\\");
    EXPECT_TRUE(to_utf8(get_executable_path()).starts_with("Z:\\"));
}

TEST(machine, denied_and_locked_paths_refuse_changes)
{
    const scratch_machine machine(R"({"denied": ["c:/Denied"], "locked": ["C:\\App\\used.dll"]})");
    for (const char* const file : {"c/Denied/file", "c/App/used.dll", "c/App/free.dll", "c/new"}) {
        std::filesystem::create_directories((machine.folder() / file).parent_path());
        std::ofstream(machine.folder() / file) << "x";
    }
    const path fresh = to_path("C:\\new");
    const auto refused = [&](auto change) {
        error_code ec;
        change(ec);
        return ec == boost::system::errc::permission_denied;
    };
    EXPECT_TRUE(refused([&](auto& ec) { create_directories(to_path("C:\\denied\\x"), ec); }));
    EXPECT_TRUE(refused([&](auto& ec) { copy_file(fresh, to_path("C:\\Denied\\x"), ec); }));
    EXPECT_TRUE(refused([&](auto& ec) { remove(to_path("C:\\Denied\\FILE"), ec); }));
    EXPECT_TRUE(refused([&](auto& ec) { copy_file(fresh, to_path("C:\\app\\USED.dll"), ec); }));
    EXPECT_TRUE(refused([&](auto& ec) { rename(to_path("C:\\App"), to_path("C:\\App2"), ec); }));
    EXPECT_TRUE(refused([&](auto& ec) { remove_all(to_path("C:\\App\\"), ec); }));
    EXPECT_FALSE(open_for_writing(to_path("C:\\Denied\\file")).is_open());
    EXPECT_FALSE(refused([&](auto& ec) { create_directories(to_path("C:\\Denied"), ec); }));
    EXPECT_FALSE(refused([&](auto& ec) { copy_file(fresh, to_path("C:\\App\\free.dll"), ec); }));
    EXPECT_FALSE(refused([&](auto& ec) { create_directories(to_path("C:\\Denied2"), ec); }));
    EXPECT_EQ(test::read_file(to_path("C:\\App\\used.dll")), "x");
    EXPECT_EQ(folder_text(to_path("C:\\")),
              "App\\\nApp\\free.dll: x\nApp\\used.dll: x\nDenied\\\nDenied\\file: x\nDenied2\\\n"
              "new: x\n");
}

TEST(machine, a_read_only_file_is_not_written_to_even_by_the_superuser)
{
    const scratch_machine machine;
    const path fixed = to_path("C:\\fixed");
    const path other = to_path("C:\\other");
    write_file(fixed, "old");
    write_file(other, "new");
    test::make_read_only(fixed);
    error_code ec;
    for (const bool only_planned : {true, false}) {
        const auto plan = only_planned ? std::make_unique<planned_changes>() : nullptr;
        copy_file(other, fixed, ec);
        EXPECT_EQ(ec, boost::system::errc::permission_denied);
        rename(other, fixed, ec);
        EXPECT_EQ(ec, boost::system::errc::permission_denied);
        EXPECT_FALSE(open_for_writing(fixed).is_open());
        EXPECT_FALSE(open_for_appending(fixed).is_open());
        EXPECT_TRUE(plan == nullptr || plan->list().empty());
    }
    rename(fixed, to_path("C:\\moved"), ec);
    EXPECT_EQ(folder_text(to_path("C:\\")), "moved: old\nother: new\n");
}

TEST(machine, a_32_bit_process_sees_the_system_folders_of_its_kind)
{
    const scratch_machine machine(R"({"bits": 64})");
    const std::filesystem::path windows = machine.folder() / "c" / "Windows";
    for (const char* const name : {"System32", "SysWOW64"}) {
        std::filesystem::create_directories(windows / name);
        std::ofstream(windows / name / "kind") << name;
    }
    const auto kind = [](const char* folder) {
        return test::read_file(to_path("C:\\WINDOWS") / folder / "kind");
    };
    EXPECT_EQ(kind("sysnative"), "System32");
    EXPECT_EQ(kind("System32"), "SysWOW64");
    EXPECT_EQ(kind("SysWOW64"), "SysWOW64");
    machine.set_facts(R"({"bits": 32})");
    EXPECT_EQ(kind("System32"), "System32");
    EXPECT_EQ(kind("sysnative"), "");
}

TEST(machine, its_facts_decide_word_size_and_user)
{
    const scratch_machine machine(R"({"bits": 32, "user": "J\u00F6rg"})");
    EXPECT_FALSE(is_64bit_windows());
    EXPECT_FALSE(runs_under_wow64());
    EXPECT_EQ(to_utf8(get_program_files_folder()), "C:\\Program Files");
    EXPECT_EQ(to_utf8(get_roaming_folder()), "C:\\Users\\J\u00F6rg\\AppData\\Roaming");
    machine.set_facts("{}");
    EXPECT_TRUE(is_64bit_windows());
    EXPECT_TRUE(runs_under_wow64());
    EXPECT_EQ(to_utf8(get_program_files_folder()), "C:\\Program Files (x86)");
    for (const char* const facts : {"{", "[]", R"({"bits": "x"})", R"({"bits": 16})"}) {
        machine.set_facts(facts);
        EXPECT_THROW(this_machine(), std::invalid_argument) << facts;
    }
    machine.set_facts("{}");
}

TEST(machine, its_folder_may_be_named_with_a_separator_at_the_end)
{
    const scratch_machine machine;
    const std::string name = machine.folder() / "not made yet" / "";
    setenv("VS5_MACHINE", name.c_str(), 1);
    forget_machine();
    write_file(to_path("C:\\dir\\file"), "x");
    EXPECT_EQ(to_utf8(canonical(to_path("C:\\dir"))), "C:\\dir");
}

TEST(machine, symbolic_links_are_counted_copied_and_not_followed)
{
    const scratch_machine machine;
    write_file(to_path("C:\\real\\file"), "x");
    std::filesystem::create_directory_symlink("../real", machine.folder() / "c/real/link");
    EXPECT_EQ(count_files_below(to_path("C:\\real")), 2U);
    error_code ec;
    copy_symlink(to_path("C:\\real\\link"), to_path("C:\\copy"), ec);
    EXPECT_EQ(symlink_status(to_path("C:\\copy")).type(), boost::filesystem::symlink_file);
    remove_all(to_path("C:\\copy"), ec);
    EXPECT_EQ(test::read_file(to_path("C:\\real\\file")), "x");
}

TEST(machine, a_value_of_any_type_is_told_for_people)
{
    const scratch_machine machine;
    const std::filesystem::path file = machine.folder() / "registry.json";
    std::ofstream(file) << R"({"HKEY_LOCAL_MACHINE\\A": {"text": "words",
        "number": {"type": "REG_DWORD", "data": 4294967295},
        "wide": {"type": "REG_QWORD", "data": 4294967296},
        "swapped": {"type": "REG_DWORD_BIG_ENDIAN", "data": 5},
        "binary": {"type": "REG_BINARY", "data": "00ff"},
        "short": {"type": "REG_DWORD", "data": "01"},
        "list": {"type": "REG_MULTI_SZ", "data": ["a", "\u00E9"]},
        "other": {"type": "77", "data": "0a"}, "bad": {"type": "REG_BINARY", "data": "g"}}})";
    std::string told;
    for (const char32_t* const name :
         {U"text", U"number", U"wide", U"swapped", U"binary", U"short", U"list", U"other"}) {
        const auto data = read_data(U"A", name);
        ASSERT_TRUE(data) << to_utf8(name);
        told += data->type + " " + to_utf8(data->text) + "\n";
    }
    EXPECT_EQ(told, "REG_SZ words\nREG_DWORD 4294967295\nREG_QWORD 4294967296\n"
                    "REG_DWORD_BIG_ENDIAN 5\nREG_BINARY 00ff\nREG_DWORD 01\n"
                    "REG_MULTI_SZ \"a\", \"\u00E9\"\n77 0a\n");
    EXPECT_EQ(read_data(U"A", U"absent"), std::nullopt);
    EXPECT_THROW(read_data(U"A", U"bad"), std::invalid_argument);
}

TEST(machine, the_registry_file_is_kept_readable_and_a_broken_one_is_named)
{
    const scratch_machine machine;
    const std::filesystem::path file = machine.folder() / "registry.json";
    std::ofstream(file) << R"({"HKEY_LOCAL_MACHINE\\Software\\A": {"s": "text",
        "e": {"type": "REG_EXPAND_SZ", "data": "%X%"}, "n": {"type": "REG_DWORD", "data": 5}}})";
    EXPECT_EQ(read_value(U"SOFTWARE\\a", U"S"), U"text");
    EXPECT_EQ(read_value(U"SOFTWARE\\a", U"e"), U"%X%");
    EXPECT_EQ(read_value(U"SOFTWARE\\a", U"n"), U"");
    EXPECT_TRUE(value_exists(U"SOFTWARE\\a", U"n"));
    // Writing keeps what is there, spelling and other types included.
    create_key(U"SOFTWARE\\a\\B");
    EXPECT_EQ(nlohmann::json::parse(std::ifstream(file)), nlohmann::json::parse(R"({
        "HKEY_CLASSES_ROOT": {}, "HKEY_LOCAL_MACHINE": {}, "HKEY_LOCAL_MACHINE\\Software": {},
        "HKEY_LOCAL_MACHINE\\Software\\A": {"s": "text",
            "e": {"type": "REG_EXPAND_SZ", "data": "%X%"}, "n": {"type": "REG_DWORD", "data": 5}},
        "HKEY_LOCAL_MACHINE\\Software\\A\\B": {}})"));
    std::ofstream(file) << "{";
    EXPECT_THROW(key_exists(U"SOFTWARE"), std::invalid_argument);
}

TEST(machine, the_user_has_a_language_and_a_keyboard)
{
    const scratch_machine machine;
    EXPECT_EQ(user_locale_name(), "en-US");
    EXPECT_EQ(user_language_id(), 9);
    EXPECT_EQ(keyboard_language_name(), "ENU");

    machine.set_facts(R"({"language": "ko-KR", "keyboard": "JPN"})");
    EXPECT_EQ(user_locale_name(), "ko-KR");
    EXPECT_EQ(user_language_id(), 18);
    EXPECT_EQ(keyboard_language_name(), "JPN");

    machine.set_facts(R"({"language": "eo", "keyboard": ""})");
    EXPECT_EQ(user_language_id(), 0x1400);
    EXPECT_EQ(keyboard_language_name(), "");
}

} // namespace

} // namespace nrd::misc
