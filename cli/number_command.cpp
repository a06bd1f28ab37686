#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "core/number_text.h"

namespace kelvro {

void AddNumberCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "number",
        "Read number texts as the input fields do; unreadable text is 0. Prints per text "
        "the value, the text of an output field and the compact text");
    auto texts = std::make_shared<std::vector<std::string>>();
    command->add_option("TEXT", *texts, "Number texts")->required()->type_name("");
    command->callback([&session, texts] {
        for (const std::string& text : *texts) {
            const double value = ParseValue(text);
            session.out << FormatExact(value) << '\t' << FormatEng(7, 2, value) << '\t'
                        << FormatEngShort(2, value) << '\n';
        }
    });
}

}  // namespace kelvro
