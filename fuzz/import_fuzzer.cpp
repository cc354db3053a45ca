// The input is an install.xml, and behind a zero byte a file "part.xml" beside it. What was
// imported is exported and imported again, which must give the same; but that each import halves
// what is left of separators in a row.

#include "check.h"
#include "inst/installation/exporter.h"
#include "inst/installation/parser.h"
#include "scratch_machine.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using nrd::installation::spec;

void write(const char* name, std::string_view text)
{
    const std::filesystem::path folder = scratch_machine() / "c";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary) << text;
}

/// A file that includes itself never ends, which is its author's affair, nor does a variable that
/// stands for itself; and files elsewhere are none of ours. So a file is named in one way only, and
/// APP_NAME, which the import expands, has no placeholder.
bool may_not_end(const std::string& main_file, const std::string& part)
{
    constexpr std::string_view directive = "#include";
    for (std::size_t at = main_file.find(directive); at != main_file.npos;
         at = main_file.find(directive, at + 1)) {
        if (main_file.compare(at, 19, "#include \"part.xml\"") != 0) {
            return true;
        }
    }
    return part.find(directive) != part.npos || main_file.find('$') != main_file.npos ||
           part.find('$') != part.npos || main_file.find("&#") != main_file.npos ||
           part.find("&#") != part.npos;
}

std::string dump(const spec& s)
{
    std::ostringstream text;
    nrd::installation::export_spec(s, text);
    return text.str();
}

spec with_paths_normalised_again(spec s)
{
    for (auto& package : s.packages) {
        for (auto& files : package.filesets) {
            files.set_in(files.in());
            files.set_out(files.out());
        }
    }
    return s;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(input.find('\0'), input.size());
    const std::string main_file = input.substr(0, end);
    const std::string part = input.substr(std::min(end + 1, input.size()));
    if (may_not_end(main_file, part)) {
        return 0;
    }
    write("install.xml", main_file);
    write("part.xml", part);
    try {
        const auto first = nrd::installation::import_install_xml("C:\\install.xml");
        if (first.error) {
            check(!first.error->description.empty(), "a fault has a text");
            check(first.error->column > 0, "a fault has a place");
            return 0;
        }
        write("again.xml", dump(first.imported));
        const auto second = nrd::installation::import_install_xml("C:\\again.xml");
        check(!second.error, "what is exported can be imported");
        check(dump(second.imported) == dump(with_paths_normalised_again(first.imported)),
              "an export survives its import");
    } catch (const std::invalid_argument&) {
        // no APP_NAME
    } catch (const std::out_of_range&) {
        // an #include without quotes
    }
    return 0;
}
