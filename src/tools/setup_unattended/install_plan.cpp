#include "tools/setup_unattended/install_plan.h"

#include "inst/installation/install_utils.h"
#include "inst/installation/installer_observer.h"
#include "inst/installer/core/install.h"
#include "misc/file_system.h"
#include "misc/registry.h"

#include <algorithm>
#include <variant>

namespace nrd::tools {

using installation::fileset_verdict;
using misc::change_kind;
using misc::planned_change;

namespace {

/// Sorts the engine's decisions, and the changes that each brings, into the plan.
class plan_observer : public installation::installer_observer {
public:
    plan_observer(spec_plan& plan, install_plan& whole, const misc::planned_changes& changes)
        : plan_(plan), whole_(whole), changes_(changes), next_change_(changes.list().size())
    {
    }

    /// A plan goes on where an installation would stop, so that it shows everything at once.
    bool report(const installation::install_event&) override { return true; }

    void decided(const installation::install_decision& decision) override
    {
        take_changes();
        std::visit([this](const auto& each) { add(each); }, decision);
    }

    void take_changes()
    {
        for (; next_change_ < changes_.list().size(); ++next_change_) {
            take(changes_.list()[next_change_]);
        }
    }

private:
    void add(const installation::package_decision& each) { plan_.packages.push_back({each, {}}); }

    void add(const installation::fileset_decision& each)
    {
        plan_.packages.back().filesets.push_back({each, {}});
        if (each.verdict == fileset_verdict::source_missing) {
            whole_.missing_sources.push_back(each.in);
        }
    }

    void add(const installation::staging_decision& each)
    {
        plan_.install_path = each.install_path;
        plan_.backs_up = each.moved_aside;
        plan_.installs_over = each.backup_path && !each.moved_aside;
    }

    void add(const installation::shortcut_decision& each) { plan_.shortcuts.push_back(each); }
    void add(const installation::path_entry_decision& each) { plan_.path_entries.push_back(each); }
    void add(const installation::failure_decision& each) { whole_.failures.push_back(each); }

    void add(const installation::refused_key_decision& each)
    {
        add_once(whole_.refused_keys, each.key);
    }

    /// For what comes several times: each access to a refused key, each entry of the path index.
    template <class Item> static void add_once(std::vector<Item>& all, const Item& item)
    {
        if (std::find(all.begin(), all.end(), item) == all.end()) {
            all.push_back(item);
        }
    }

    void take(const planned_change& change)
    {
        switch (change.kind) {
        case change_kind::create_folder:
            plan_.new_folders.push_back(change.target);
            break;
        case change_kind::copy_file:
            plan_.packages.back().filesets.back().files.push_back(change);
            whole_.bytes_needed += change.bytes;
            break;
        case change_kind::write_file:
            add_once(plan_.written_files, change.target);
            break;
        case change_kind::create_key:
        case change_kind::set_value:
        case change_kind::delete_key:
        case change_kind::delete_value:
            plan_.registry.push_back(change);
            break;
        case change_kind::create_shortcut: // told by the decision behind it
        case change_kind::rename:          // the back-up, told by the staging
        case change_kind::remove:
            break;
        }
    }

    spec_plan& plan_;
    install_plan& whole_;
    const misc::planned_changes& changes_;
    std::size_t next_change_;
};

/// What nothing in the engine catches, but stands for a place on the machine, is a step that fails
/// like any other.
void run_engine(const installation::spec& s, plan_observer& observer,
                std::vector<installation::failure_decision>& failures)
{
    try {
        installer::core::install(s, observer);
    } catch (const misc::filesystem_error& error) {
        const std::string where = misc::error_path_text(error.path1());
        failures.push_back(
            {misc::to_path(std::string_view(where)), misc::error_message(error.code())});
    } catch (const misc::registry_error& error) {
        failures.push_back({misc::to_path(std::u32string_view(error.path())),
                            "The registry key cannot be changed"});
    }
}

} // namespace

install_plan make_plan(const installation::specs& specs, const misc::planned_changes& changes)
{
    install_plan plan;
    plan.blockers = installation::blocker_processes(specs);
    for (const installation::spec& each : specs) {
        plan.specs.emplace_back();
        spec_plan& part = plan.specs.back();
        part.working_directory = each.working_directory;
        part.app_name = misc::to_utf8(each.app_name());
        part.already_installed = installation::is_installed(each);
        const misc::scoped_current_path folder(each.working_directory);
        plan_observer observer(part, plan, changes);
        run_engine(each, observer, plan.failures);
        observer.take_changes();
    }
    if (!plan.specs.empty()) {
        plan.bytes_free = misc::free_space(plan.specs.front().install_path);
    }
    return plan;
}

} // namespace nrd::tools
