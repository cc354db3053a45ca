// Whether reading an install.xml and expanding texts stay linear.

#include "inst/installation/parser.h"
#include "misc/file_system.h"
#include "stopwatch.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace {

using nrd::installation::spec;
using nrd::misc::text32;

const nrd::misc::path scratch = "C:\\vs5_bench";

text32 var_name(int i)
{
    return nrd::misc::to_text32(std::string_view("VAR_" + std::to_string(1000 + i)));
}

double time_import(int filesets, int vars)
{
    const nrd::misc::path file = scratch / "install.xml";
    std::ofstream out = nrd::misc::open_for_writing(file);
    out << "<installation><vars><var name=\"APP_NAME\" value=\"bench\"/>\n";
    for (int i = 0; i < vars; ++i) {
        out << "<var name=\"" << nrd::misc::to_utf8(var_name(i)) << "\" value=\"${APP_NAME}\"/>\n";
    }
    out << "</vars><packages><package name=\"p\" os=\"all\" bits=\"all\"><filesets>\n";
    for (int i = 0; i < filesets; ++i) {
        out << "<fileset in=\"files/" << i << "\" out=\"${APP_INSTALL_PATH}" << i << "\"/>\n";
    }
    out << "</filesets></package></packages></installation>\n";
    out.close();
    return bench::median_of(
        5, [&] { return bench::seconds([&] { nrd::installation::import_spec(file); }); });
}

/// Microseconds to expand a text that names each of `count` variables once.
double time_expand(int count)
{
    spec s;
    text32 text;
    for (int i = 0; i < count; ++i) {
        s.vars.push_back({var_name(i), U"C:/value"});
        text += U"${" + var_name(i) + U"}";
    }
    const int repeats = 2000 / count + 1;
    const auto expand_all = [&] {
        for (int i = 0; i < repeats; ++i) {
            if (s.expand(text).empty()) {
                std::abort();
            }
        }
    };
    return bench::median_of(5, [&] { return bench::seconds(expand_all); }) / repeats * 1e6;
}

} // namespace

int main()
{
    nrd::misc::create_directories(scratch);
    const double small = time_import(2000, 100);
    const double large = time_import(20000, 1000);
    std::printf("import of 2,000 filesets, 100 variables:      %8.1f ms\n", small * 1e3);
    std::printf("import of 20,000 filesets, 1,000 variables:   %8.1f ms\n", large * 1e3);
    std::printf("the second / 10 times the first:              %8.2f  (linear: 1)\n",
                large / (10 * small));
    const double one = time_expand(1);
    for (const int count : {1, 100, 1000}) {
        const double time = time_expand(count);
        std::printf("expand with %4d variables:  %9.2f us, %6.3f us each, %5.2f of that with one\n",
                    count, time, time / count, time / count / one);
    }
    nrd::misc::error_code ec;
    nrd::misc::remove_all(scratch, ec);
}
