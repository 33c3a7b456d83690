#include <iostream>

#include "Commands.h"
#include "LspServer.h"

namespace ovela::tune {

int runLsp(const CommandLine& line, std::ostream& out, std::ostream& err) {
    if (!line.positional().empty()) {
        err << "ovela-tune lsp: takes no file: the editor sends the texts\n";
        return kExitUsage;
    }
    lsp::LspServer server(std::cin, out);
    return server.run();
}

}  // namespace ovela::tune
