#include "vs/vs_installer/hosts.h"

#include "misc/file_system.h"
#include "misc/registry.h"
#include "support/file_content.h"
#include "support/log_capture.h"
#include "vs/vs_installer/host_machine.h"

#include <stdexcept>

namespace nrd::vs_installer {
namespace {

using misc::to_utf8;

class hosts : public host_machine {
protected:
    std::string text_of(const std::vector<host_app>& list)
    {
        std::string text;
        for (const host_app& each : list) {
            text += to_utf8(each.key) + " | " + to_utf8(each.name) + " | " + to_utf8(each.path) +
                    (each.is_32_bit ? " | 32\n" : " | 64\n");
        }
        return folder_.plain(text);
    }

    void corel(const std::string& key, const std::string& destination)
    {
        value(key, "Destination", destination);
    }

    void bridge(const std::string& key, const std::string& install_path)
    {
        value(key + "\\Installer", "InstallPath", install_path);
    }

    /// The shortcut beside Bridge by which Illustrator is found, and the program.
    void linked_illustrator(const std::string& name)
    {
        test::write_file(folder_ / ("Adobe\\" + name + "\\" + name + ".lnk"), "never opened");
        illustrator(folder_ / ("Adobe\\" + name), 64);
    }
};

TEST_F(hosts, corel_is_found_in_both_halves_of_the_registry)
{
    misc::create_directories(folder_ / "2020\\Programs64");
    misc::create_directories(folder_ / "bare\\Programs64");
    const std::string t = to_utf8(folder_.path()) + "\\";
    const std::string name = "Corel\\Setup\\CorelDRAW Graphics Suite ";
    corel(name + "2020", t + "2020\\");
    corel(name + "2021", ""); // removed by halves
    misc::create_key(U"SOFTWARE\\Corel\\Setup\\CorelDRAW Graphics Suite 2022");
    corel("Corel\\Setup\\PHOTO-PAINT", t + "2020\\");
    corel("Corel\\Setup\\CorelDRAW Graphics Suite", t + "2020\\");
    corel(wow + "Corel\\Setup\\My CorelDRAW Graphics Suite X8", t + "gone\\");
    corel(wow + name + "X9", t + "bare"); // "barePrograms64" is what is looked for
    const test::log_capture log;
    EXPECT_EQ(
        text_of(find_corel_hosts()),
        "CorelDRAW Graphics Suite 2020 | CorelDRAW Graphics Suite 2020 | T:\\2020\\ | 64\n"
        "CorelDRAW Graphics Suite X9 | CorelDRAW Graphics Suite X9 | T:\\bare | 32\n"
        "My CorelDRAW Graphics Suite X8 | My CorelDRAW Graphics Suite X8 | T:\\gone\\ | 32\n");
    EXPECT_EQ(folder_.plain(log.text()),
              "Finding Corel versions.\n"
              "Corel not found.\n"
              "Corel not found.\n"
              "Found Corel installations:\n"
              "Name: CorelDRAW Graphics Suite 2020, Path: T:\\2020\\\n"
              "Finding Corel versions.\n"
              "Found Corel installations:\n"
              "Name: CorelDRAW Graphics Suite X9, Path: T:\\bare\n"
              "Name: My CorelDRAW Graphics Suite X8, Path: T:\\gone\\\n");
}

TEST_F(hosts, illustrator_is_found_in_the_systems_list_of_programs)
{
    illustrator(folder_ / "direct", 64);
    illustrator(folder_ / "common\\Adobe Illustrator 2021", 32);
    illustrator(folder_ / "other", 32);
    listed("1", "Adobe Illustrator 2020 (64 Bit)", folder_ / "direct");
    listed("2", "Adobe Illustrator 2021", folder_ / "common");
    listed("3", "Adobe Illustrator 2022", folder_ / "gone");
    listed("4", "Adobe Photoshop", folder_ / "direct");
    listed("5", "Adobe Illustrator", misc::path());
    listed("6", "", folder_ / "direct");
    listed(wow + "7", "My Adobe Illustrator", folder_ / "other");
    listed(wow + "8", "Adobe Illustrator 2020 (64 Bit)", folder_ / "direct");
    EXPECT_EQ(text_of(find_adobe_hosts(true)),
              "VS5 test 1 | Adobe Illustrator 2020 (64 Bit) | T:\\direct | 64\n"
              "VS5 test 2 | Adobe Illustrator 2021 | T:\\common\\Adobe Illustrator 2021 | 32\n"
              "VS5 test 7 | My Adobe Illustrator | T:\\other | 32\n"
              "VS5 test 8 | Adobe Illustrator 2020 (64 Bit) | T:\\direct | 64\n");
    EXPECT_EQ(text_of(find_adobe_hosts(false)), text_of(find_adobe_hosts(true)));
}

TEST_F(hosts, illustrator_is_found_beside_bridge_and_twice_if_it_is_listed_too)
{
    const std::string adobe = to_utf8(folder_ / "Adobe") + "\\";
    linked_illustrator("Adobe Illustrator 13.0.1 (64 Bit)");
    linked_illustrator("Adobe Illustrator 13"); // the longer name goes first
    linked_illustrator("Adobe Illustrator 14");
    linked_illustrator("Adobe Illustrator 15");
    illustrator(folder_ / "Adobe\\Adobe Illustrator 16", 64); // without the shortcut
    linked_illustrator("Adobe Illustrator 17");
    linked_illustrator("Adobe Illustrator 18");
    const std::string key = "Adobe\\Adobe Bridge\\";
    bridge(key + "13", adobe + "Adobe Bridge 13.0.1 (64 Bit)");
    bridge(key + "14", adobe + "Adobe Bridge 14.2");
    bridge(wow + key + "15", adobe + "Adobe Bridge 15");
    bridge(key + "16", adobe + "Adobe Bridge 16");
    bridge(key + "17", adobe + "Adobe Bridge");      // the version is not in the folder's name
    bridge(key + "18", adobe + "Adobe Bridge 18\\"); // a separator at the end hides the name
    bridge(key + "19", "");
    value(key + "20", "InstallPath", adobe + "Adobe Bridge 20"); // no key "Installer"
    listed("1", "Adobe Illustrator 14", folder_ / "Adobe\\Adobe Illustrator 14");
    EXPECT_EQ(text_of(find_adobe_hosts(true)),
              "VS5 test 1 | Adobe Illustrator 14 | T:\\Adobe\\Adobe Illustrator 14 | 64\n"
              "13 | Adobe Illustrator 13.0.1 (64 Bit)"
              " | T:\\Adobe\\Adobe Illustrator 13.0.1 (64 Bit) | 64\n"
              "14 | Adobe Illustrator 14 | T:\\Adobe\\Adobe Illustrator 14 | 64\n"
              "15 | Adobe Illustrator 15 | T:\\Adobe\\Adobe Illustrator 15 | 64\n");
}

TEST_F(hosts, illustrator_is_found_in_the_folders_of_programs_unless_its_name_is_known)
{
    illustrator(folder_ / "2020", 64);
    listed("1", "Adobe Illustrator 2020", folder_ / "2020");
    illustrator("C:\\Program Files\\Adobe\\Adobe Illustrator 2020", 32);
    illustrator("C:\\Program Files\\Adobe\\Adobe Illustrator 2021", 64);
    illustrator("C:\\Program Files\\Adobe\\Adobe Illustrator", 64);
    misc::create_directories("C:\\Program Files\\Adobe\\Adobe Illustrator 2022");
    test::write_file("C:\\Program Files\\Adobe\\An Adobe Illustrator .txt", "");
    illustrator("C:\\Program Files (x86)\\Adobe\\Adobe Illustrator 2021", 32);
    illustrator("C:\\Program Files (x86)\\Adobe\\Adobe Illustrator CS6", 32);
    const test::log_capture log;
    EXPECT_EQ(text_of(find_adobe_hosts(true)),
              "VS5 test 1 | Adobe Illustrator 2020 | T:\\2020 | 64\n"
              "Adobe Illustrator 2021 | Adobe Illustrator 2021"
              " | C:\\Program Files\\Adobe\\Adobe Illustrator 2021 | 64\n"
              "Adobe Illustrator CS6 | Adobe Illustrator CS6"
              " | C:\\Program Files (x86)\\Adobe\\Adobe Illustrator CS6 | 32\n");
    const std::string first = "Name: Adobe Illustrator 2020, Path: T:\\2020\n"
                              "Name: Adobe Illustrator 2021, Path: "
                              "C:\\Program Files\\Adobe\\Adobe Illustrator 2021\n";
    const std::string last = "Name: Adobe Illustrator CS6, Path: "
                             "C:\\Program Files (x86)\\Adobe\\Adobe Illustrator CS6\n";
    EXPECT_EQ(folder_.plain(log.text()),
              "Finding Adobe versions.\nFound possible Adobe installations:\n" + first +
                  "Name: Adobe Illustrator 2022, Path: "
                  "C:\\Program Files\\Adobe\\Adobe Illustrator 2022\n"
                  "Name: An Adobe Illustrator .txt, Path: "
                  "C:\\Program Files\\Adobe\\An Adobe Illustrator .txt\n" +
                  last + "Accepted Adobe installations:\n" + first + last);
}

TEST_F(hosts, a_file_that_is_no_program_throws)
{
    const auto thrown = [this](const char* name) -> std::string {
        try {
            return exe_is_32_bit(folder_ / name) ? "32" : "64";
        } catch (const std::invalid_argument& error) {
            return folder_.plain(error.what());
        }
    };
    test::write_file(folder_ / "text.exe", "text");
    test::write_file(folder_ / "dos.exe", "MZ" + std::string(62, '\0'));
    EXPECT_EQ(thrown("text.exe"), "Not an executable T:\\text.exe");
    EXPECT_EQ(thrown("dos.exe"), "Executable not 32 or 64 bitT:\\dos.exe");
    EXPECT_EQ(thrown("gone.exe"), "Executable not found T:\\gone.exe");
    listed("1", "Adobe Illustrator 2020", folder_ / "host");
    test::write_file(folder_ / "host\\Support Files\\Contents\\Windows\\Illustrator.exe", "text");
    EXPECT_THROW(find_adobe_hosts(true), std::invalid_argument);
}

} // namespace
} // namespace nrd::vs_installer
