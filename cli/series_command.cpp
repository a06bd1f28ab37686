#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/design_options.h"
#include "core/number_text.h"
#include "core/series.h"

namespace kelvro {

namespace {

struct SeriesOptions {
    std::string name;
    std::vector<std::string> texts;
};

}  // namespace

void AddSeriesCommand(CLI::App& app, Session& session) {
    CLI::App* command =
        app.add_subcommand("series", "Standard values around each number: below, above, nearest");
    auto options = std::make_shared<SeriesOptions>();
    command->add_option("SERIES", options->name, "E6, E12, E24, E48 or E96")
        ->required()
        ->check(SeriesProblem)
        ->type_name("");
    command->add_option("TEXT", options->texts, "Number texts")
        ->required()
        ->check(PositiveNumberProblem)
        ->type_name("");
    command->callback([&session, options] {
        const Series series = SeriesByName(options->name).value_or(Series::None);
        for (const std::string& text : options->texts) {
            const double value = ParseValue(text);
            session.out << SeriesBelow(series, value) << '\t' << SeriesAbove(series, value) << '\t'
                        << SeriesNearest(series, value) << '\n';
        }
    });
}

}  // namespace kelvro
