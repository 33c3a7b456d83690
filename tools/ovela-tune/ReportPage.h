#ifndef OVELA_TUNE_REPORT_PAGE_H
#define OVELA_TUNE_REPORT_PAGE_H

#include <string>

#include "LoadedFile.h"

namespace ovela::tune {

// One self-contained HTML page about a loaded tuning file: the findings of
// its load at the top, then, for a file that loads, the equalizer presets'
// curves, the profile and endpoint tables, each tuning's bands and lists, and
// the room each array uses. Everything comes from the load: its report, its
// model and the store's arrays.
std::string reportPage(LoadedFile& file);

}  // namespace ovela::tune

#endif  // OVELA_TUNE_REPORT_PAGE_H
