#include "cli/commands.h"
#include "design/pages.h"

namespace kelvro {

void AddPagesCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("pages", "List the design pages: number, key, caption");
    command->callback([&session] {
        for (const Page& page : Pages()) {
            session.out << page.number << '\t' << std::string_view(page.key) << '\t'
                        << std::string_view(page.caption) << '\n';
        }
    });
}

}  // namespace kelvro
