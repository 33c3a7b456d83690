#include <cerrno>
#include <cstdio>
#include <cstring>

#include "Commands.h"
#include "LoadedFile.h"
#include "ReportPage.h"

namespace ovela::tune {

int runReport(const CommandLine& line, std::ostream& out, std::ostream& err) {
    std::string path;
    if (!tuningFileArgument(line, "report", false, &path, err)) {
        return kExitUsage;
    }
    const std::unique_ptr<LoadedFile> file = loadFile(path);
    // A file that does not load still gets its page: the findings say why.
    const std::string page = reportPage(*file);
    if (line.has("output")) {
        const std::string output = line.value("output");
        // The reason comes from the call that failed: opening, writing or
        // closing, where a full disk shows.
        FILE* stream = std::fopen(output.c_str(), "wb");
        bool written = stream != nullptr;
        int error = errno;
        if (stream != nullptr) {
            written = std::fwrite(page.data(), 1, page.size(), stream) == page.size();
            error = errno;
            if (std::fclose(stream) != 0 && written) {
                written = false;
                error = errno;
            }
        }
        if (!written) {
            err << "ovela-tune report: cannot write " << output << ": " << std::strerror(error)
                << "\n";
            return kExitUsage;
        }
    } else {
        out << page;
    }
    return file->loads() ? kExitOk : kExitDoesNotLoad;
}

}  // namespace ovela::tune
