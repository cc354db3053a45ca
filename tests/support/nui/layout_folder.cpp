#include "support/nui/layout_folder.h"

#include "nui/engine/engine.h"
#include "nui/reader/layout_loader.h"
#include "support/file_content.h"
#include "support/nui/layout.h"

#include <algorithm>

namespace nui::test {

LayoutFolder::LayoutFolder() : path_(hostPath(folder_.path()) + '/')
{
    engine().basePath = path_;
}

void LayoutFolder::write(const std::string& name, std::string json) const
{
    std::replace(json.begin(), json.end(), '\'', '"');
    nrd::test::write_file(folder_ / name, json);
}

std::string LayoutFolder::faultsOf(const std::string& name) const
{
    std::string sentences;
    LayoutLoader loader(name);
    loader.setFaultListener([this, &sentences](const LayoutFault& fault) {
        std::string sentence = sentenceFor(fault);
        if (sentence.starts_with(path_))
            sentence.erase(0, path_.size());
        sentences += sentence + '\n';
    });
    loader.load();
    return sentences;
}

} // namespace nui::test
