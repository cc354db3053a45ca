#include "tools/sample_machine/sample_hosts.h"

#include <exception>
#include <iostream>

int main()
{
    using namespace nrd;
    try {
        for (const sample_machine::sample_host& host : sample_machine::prepare_sample_hosts()) {
            std::cout << misc::to_utf8(host.name) << ", " << host.bits
                      << " bit: " << misc::to_utf8(host.folder) << '\n';
        }
    } catch (const std::exception& error) {
        std::cerr << "The sample machine cannot be prepared: " << error.what() << '\n';
        return 1;
    }
}
