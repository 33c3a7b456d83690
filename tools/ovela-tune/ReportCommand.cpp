#include <fstream>

#include "Commands.h"
#include "LoadedFile.h"
#include "ReportPage.h"

namespace ovela::tune {

int runReport(const CommandLine& line, std::ostream& out, std::ostream& err) {
    std::string path;
    if (!tuningFileArgument(line, &path, err)) {
        return kExitUsage;
    }
    const std::unique_ptr<LoadedFile> file = loadFile(path);
    // A file that does not load still gets its page: the findings say why.
    const std::string page = reportPage(*file);
    if (line.has("output")) {
        std::ofstream output(line.value("output"), std::ios::binary);
        output << page;
        if (!output.flush()) {
            err << "ovela-tune report: cannot write " << line.value("output") << "\n";
            return kExitUsage;
        }
    } else {
        out << page;
    }
    return file->loads() ? kExitOk : kExitDoesNotLoad;
}

}  // namespace ovela::tune
