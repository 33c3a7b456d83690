#include "LoadedFile.h"

#include "CommandLine.h"

namespace ovela::tune {

std::unique_ptr<LoadedFile> loadFile(const std::string& path) {
    auto file = std::make_unique<LoadedFile>();
    file->path = path;
    file->store = std::make_unique<ProfileParamArray>(path, &file->report);
    return file;
}

int doesNotLoad(const char* command, const LoadedFile& file, std::ostream& err) {
    for (const LoadFinding& finding : file.report.findings()) {
        if (finding.severity != Severity::ERROR) {
            continue;
        }
        err << "ovela-tune " << command << ": ";
        // A file that cannot be read has no line, and its message names it.
        if (finding.line > 0) {
            err << file.path << ":" << finding.line << ": ";
        } else if (finding.message.rfind(file.path, 0) != 0) {
            err << file.path << ": ";
        }
        err << finding.message << "\n";
    }
    return kExitDoesNotLoad;
}

}  // namespace ovela::tune
