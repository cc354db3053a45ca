#include "tools/sample_machine/sample_hosts.h"

#include "misc/file_system.h"
#include "misc/registry.h"
#include "misc/system_info.h"
#include "tools/sample_machine/tiny_program.h"

#include <stdexcept>
#include <string>

namespace nrd::sample_machine {

using misc::text32;
using misc::to_path;

namespace {

/// A 64-bit Windows keeps what belongs to 32-bit programs apart.
bool lies_apart(int bits)
{
    return bits == 32 && misc::is_64bit_windows();
}

text32 software_key(int bits)
{
    return lies_apart(bits) ? U"SOFTWARE\\WOW6432Node\\" : U"SOFTWARE\\";
}

misc::path program_files(int bits)
{
    return lies_apart(bits) ? "C:\\Program Files (x86)" : "C:\\Program Files";
}

void set_value(const text32& key, const text32& name, const text32& data)
{
    misc::create_key(key);
    misc::set_string_value(key, name, data);
}

void write_file(const misc::path& where, const std::string& content)
{
    misc::create_directories(where.parent_path());
    std::ofstream file = misc::open_for_writing(where, misc::line_ends::as_written);
    file << content;
    file.close();
    if (!file) {
        throw std::runtime_error(misc::to_utf8(where) + " cannot be written");
    }
}

void write_program(const sample_host& host)
{
    write_file(host.program, tiny_program(host.bits));
}

/// Found by its key, whose value ends in a separator; 64-bit by the folder of its programs.
sample_host make_corel(const text32& name, int bits)
{
    const misc::path folder = program_files(bits) / "Corel" / to_path(std::u32string_view(name));
    const misc::path programs = folder / (bits == 64 ? "Programs64" : "Programs");
    sample_host host{name, bits, folder, programs / "CorelDRW.exe"};
    write_program(host);
    set_value(software_key(bits) + U"Corel\\Setup\\" + name, U"Destination",
              misc::to_text32(folder) + U"\\");
    return host;
}

sample_host make_illustrator(const text32& name, int bits)
{
    const misc::path folder = program_files(bits) / "Adobe" / to_path(std::u32string_view(name));
    sample_host host{name, bits, folder,
                     folder / "Support Files\\Contents\\Windows\\Illustrator.exe"};
    write_program(host);
    misc::create_directories(folder / "Plug-ins");
    return host;
}

/// The list of installed programs; an Illustrator that is not in it is found by its folder.
void list_as_installed(const sample_host& host, const text32& code)
{
    const text32 key =
        software_key(host.bits) + U"Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + code;
    set_value(key, U"DisplayName", host.name);
    set_value(key, U"InstallLocation", misc::to_text32(host.folder));
}

} // namespace

std::vector<sample_host> prepare_sample_hosts()
{
    std::vector<sample_host> hosts;
    if (misc::is_64bit_windows()) {
        hosts.push_back(make_corel(U"CorelDRAW Graphics Suite 2020", 64));
        // The folder of macros comes with a part of the suite that not everyone installs.
        write_file(hosts.back().folder / "Draw\\GMS\\GlobalMacros.gms.txt",
                   "Stand-in for the host's own macros.\n");
        hosts.push_back(make_illustrator(U"Adobe Illustrator 2023", 64));
        list_as_installed(hosts.back(), U"ILST_27_0");
    }
    hosts.push_back(make_corel(U"CorelDRAW Graphics Suite 2018", 32));
    hosts.push_back(make_illustrator(U"Adobe Illustrator CC 2015", 32));
    return hosts;
}

} // namespace nrd::sample_machine
