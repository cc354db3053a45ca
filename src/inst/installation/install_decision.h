#pragma once

#include "misc/path.h"
#include "misc/text.h"

#include <optional>
#include <string>
#include <variant>

// What the engine decides while it runs, for those who explain a run to a person: a plan, or the
// sentence in which a failure is told. Paths and texts are expanded.

namespace nrd::installation {

enum class package_verdict { installed, other_system, other_word_size };

struct package_decision {
    std::string name;
    std::string os;
    std::string bits;
    package_verdict verdict = package_verdict::installed;
};

enum class fileset_verdict { copied, no_destination, parent_missing, source_missing };

struct fileset_decision {
    misc::path in;
    misc::path out;
    fileset_verdict verdict = fileset_verdict::copied;
};

/// How the install folder was made ready.
struct staging_decision {
    misc::path install_path;
    std::optional<misc::path> backup_path{}; ///< where an older folder was to go
    bool moved_aside = false;                ///< it went there; otherwise it is installed over
};

enum class shortcut_verdict { made, other_system, refused };

/// One that is not for this system stands as it was written. A refused one does not end the run.
struct shortcut_decision {
    misc::text32 location;
    misc::text32 destination;
    shortcut_verdict verdict = shortcut_verdict::made;
};

struct path_entry_decision {
    misc::text32 app_code;
    misc::text32 path;
};

/// A registry key that the system refuses, while the run goes on without what was for it. Told at
/// each access.
struct refused_key_decision {
    misc::text32 key;
};

/// The step that ended a run, told before the run is taken back.
struct failure_decision {
    misc::path where;
    std::string reason; ///< one clause, UTF-8
};

using install_decision =
    std::variant<package_decision, fileset_decision, staging_decision, shortcut_decision,
                 path_entry_decision, refused_key_decision, failure_decision>;

} // namespace nrd::installation
