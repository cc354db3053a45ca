// The input is the rules of a text field and edits on it, which a plain model follows.

#include "check.h"
#include "nui/engine/engine.h"
#include "support/nui/edit_oracle.h"
#include "support/nui/fixed_font.h"

#include <cstddef>
#include <memory>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (!nui::Engine::exists()) {
        nui::Engine::create().fonts.defaultEditFont = std::make_unique<nui::test::FixedFont>();
    }
    const std::string difference = nui::test::firstDifferenceInEdits(data, size);
    check(difference.empty(), difference.c_str());
    return 0;
}
