#ifndef OVELA_TUNE_LOADED_FILE_H
#define OVELA_TUNE_LOADED_FILE_H

#include <ovela/ProfileParamArray.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "LoadReport.h"

namespace ovela::tune {

// A tuning file loaded into a store of its own, with the report of that
// load: every command takes what it says from these two, never from the
// file's text.
struct LoadedFile {
    std::string path;
    LoadReport report;
    std::unique_ptr<ProfileParamArray> store;

    bool loads() const { return !report.hasErrors(); }
    // The findings of the load as check lists them: what stops the load
    // first, the rest in the order of the file; those that the file's
    // comments accept are among them, marked.
    std::vector<LoadFinding> findings() const;
    // The findings of `severity` that no comment accepts.
    size_t count(Severity severity) const;
    // "loads, 0 errors, 1 warning, 0 notes", of those no comment accepts.
    std::string summary() const;
};

std::unique_ptr<LoadedFile> loadFile(const std::string& path);
// The text of a tuning file that no file holds (an editor's unsaved buffer),
// loaded as loadFile() loads a file's; `name` stands for its path.
std::unique_ptr<LoadedFile> loadText(const std::string& name, const std::string& text);

// Prints why the file does not load, as "check" would, behind "ovela-tune
// COMMAND: ", and returns the exit code for it.
int doesNotLoad(const char* command, const LoadedFile& file, std::ostream& err);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_LOADED_FILE_H
