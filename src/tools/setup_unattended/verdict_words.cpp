#include "tools/setup_unattended/verdict_words.h"

namespace nrd::tools {

const char* words_of(installation::package_verdict verdict)
{
    switch (verdict) {
    case installation::package_verdict::installed:
        return "install";
    case installation::package_verdict::other_system:
        return "left out: for another system";
    case installation::package_verdict::other_word_size:
        break;
    }
    return "left out: not for this word size";
}

const char* words_of(installation::fileset_verdict verdict)
{
    switch (verdict) {
    case installation::fileset_verdict::copied:
        return "copy";
    case installation::fileset_verdict::no_destination:
        return "left out: no destination, its host is not installed";
    case installation::fileset_verdict::parent_missing:
        return "left out: the folder above does not exist";
    case installation::fileset_verdict::source_missing:
        break;
    }
    return "source missing";
}

const char* words_of(installation::shortcut_verdict verdict)
{
    switch (verdict) {
    case installation::shortcut_verdict::made:
        return "make";
    case installation::shortcut_verdict::other_system:
        return "left out: for another system";
    case installation::shortcut_verdict::refused:
        break;
    }
    return "cannot be made";
}

const char* words_of(misc::change_kind kind)
{
    switch (kind) {
    case misc::change_kind::create_folder:
        return "create folder";
    case misc::change_kind::copy_file:
        return "copy file";
    case misc::change_kind::write_file:
        return "write file";
    case misc::change_kind::rename:
        return "rename";
    case misc::change_kind::remove:
        return "remove";
    case misc::change_kind::create_shortcut:
        return "create shortcut";
    case misc::change_kind::create_key:
        return "create key";
    case misc::change_kind::set_value:
        return "set value";
    case misc::change_kind::delete_key:
        return "delete key";
    case misc::change_kind::delete_value:
        break;
    }
    return "delete value";
}

} // namespace nrd::tools
