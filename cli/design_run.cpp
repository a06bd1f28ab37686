#include "cli/design_run.h"

#include <algorithm>
#include <variant>

#include "analysis/response.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "optimize/page_optimizer.h"

namespace kelvro {

namespace {

/// A component that a page designs, and what --take says of it.
struct Component {
    std::string name;
    PartRef part;
    std::string taken = {};  ///< text of --take, empty where it is not named
};

/// Those of the fields always, those of the table where the page could design it.
std::vector<Component> ComponentsOf(const DesignRun& run) {
    std::vector<Component> components;
    for (const PartRef& part : PartsOf(run.state)) {
        if (part.field || !run.refused()) components.push_back({part.name(run.state), part});
    }
    return components;
}

template <typename Which>
std::string Names(const std::vector<Component>& components, Which&& which) {
    std::string names;
    for (const Component& component : components) {
        if (which(component)) names += (names.empty() ? "" : ", ") + component.name;
    }
    return names;
}

/// The components of the page with the texts of --take, the last one of a name.
Outcome<std::vector<Component>> WithTakes(std::vector<Component> components,
                                          const std::vector<std::string>& takes, const Page& page) {
    for (const std::string& take : takes) {
        const auto [name, value] = SplitAtEquals(take);
        const auto component = std::ranges::find(components, name, &Component::name);
        if (component == components.end()) {
            const std::string known = Names(components, [](const Component&) { return true; });
            return Problem{ExitCode::Usage,
                           "--take: page " + std::string(page.key) + " has no component '" + name +
                               "' (it has: " + (known.empty() ? "none" : known) + ")"};
        }
        component->taken = value;
    }
    return components;
}

/// The design with the components of --take in place of its own.
Outcome<DesignRun> RunTaken(DesignRun run, const DesignOptions& options) {
    ResponseServices services;
    run.cycle = Calculate(run.state, true, services);
    run.state = run.cycle.design;
    const auto named = WithTakes(ComponentsOf(run), options.takes, run.page());
    if (!named) return named.status();
    const auto& components = *named;
    const std::string missing =
        Names(components, [](const Component& component) { return component.taken.empty(); });
    if (run.refused() && !missing.empty()) {
        return Problem{ExitCode::Refused,
                       *run.cycle.message + " (--take gives no value for " + missing + ")"};
    }
    for (const Component& component : components) {
        if (component.taken.empty()) continue;
        component.part.type(run.state, ParseComponent(component.taken));
    }
    run.cycle =
        run.refused() ? ShowComponents(run.state, services) : Calculate(run.state, false, services);
    run.state = run.cycle.design;
    return run;
}

}  // namespace

Outcome<DesignRun> RunDesign(const DesignOptions& options, Session& session) {
    auto prepared = StateOf(options, session);
    if (!prepared) return prepared.status();
    DesignRun run{std::move(*prepared), {}, SeriesOf(options), {}};
    if (!options.takes.empty()) return RunTaken(std::move(run), options);
    OptimizerServices services({.disabled = options.noOptimize});
    run.cycle = Calculate(run.state, true, services);
    run.state = run.cycle.design;
    const PageOptimization& optimization = services.last();
    if (optimization.status == PageOptimization::Status::Finished) {
        run.goal = GoalReport{optimization.startGoal, optimization.achievedGoal,
                              optimization.iterations(), optimization.calls.total()};
    }
    return run;
}

Outcome<DesignRun> RunAcceptedDesign(const DesignOptions& options, Session& session) {
    auto outcome = RunDesign(options, session);
    if (outcome && outcome->refused()) return Problem{ExitCode::Refused, *outcome->cycle.message};
    return outcome;
}

Outcome<DesignRun> RunRespondingDesign(const DesignOptions& options, Session& session) {
    const Page* page = FindPage(options.page);
    if (page && !page->transfer) {
        return Problem{ExitCode::Refused, "Page " + std::to_string(page->number) + " (" +
                                              std::string(page->caption) +
                                              ") has no frequency response."};
    }
    return RunAcceptedDesign(options, session);
}

}  // namespace kelvro
