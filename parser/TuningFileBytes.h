#ifndef OVELA_TUNING_FILE_BYTES_H
#define OVELA_TUNING_FILE_BYTES_H

#include <cstddef>
#include <string>

// Reading a tuning file into memory; not part of the library's interface.
namespace ovela {

class LoadReport;

// The most bytes that a tuning file may take on disk, and once libxml2's input
// layer has decompressed it. Real tuning files stay under 1 MiB; the limits
// only keep a hostile or mistaken path (a compressed bomb, a huge file) from
// costing without end in the audio server.
inline constexpr size_t kMaxTuningFileBytes = 64 << 20;
inline constexpr size_t kMaxTuningDocumentBytes = 64 << 20;

// Reads the tuning file at `path` into `bytes` as xmlReadFile would read it
// (through libxml2's input layer, so a compressed file reads decompressed),
// without ever blocking: the file is opened non-blocking and must be a
// regular file, not a FIFO, a device, a directory or a socket. A file that
// cannot be read, or that passes a limit above, is logged, told to `report`
// when there is one, and gives false.
bool readTuningFile(const std::string& path, std::string* bytes, LoadReport* report);

// Copies the `size` bytes at `data`, the text of a tuning file called `name`
// that no file holds (an editor's unsaved text), into `bytes`, under the same
// limit as a file on disk. Text past the limit, or a null `data` with a size,
// is logged, told to `report` when there is one, and gives false.
bool takeTuningText(const std::string& name, const char* data, size_t size, std::string* bytes,
                    LoadReport* report);

}  // namespace ovela

#endif  // OVELA_TUNING_FILE_BYTES_H
