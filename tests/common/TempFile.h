#ifndef OVELA_TESTS_TEMP_FILE_H
#define OVELA_TESTS_TEMP_FILE_H

#include <string>

namespace ovela::testing {

// A file with the given contents that is removed when the object goes away.
class TempFile {
  public:
    explicit TempFile(const std::string& contents, const std::string& suffix = ".xml");
    ~TempFile();
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::string& path() const { return mPath; }

  private:
    std::string mPath;
};

// The bytes of the file at `path`; empty when it cannot be read.
std::string fileText(const std::string& path);

// Path of a fixture under tests/data.
std::string dataFile(const std::string& name);

// Path of the complete sample tuning file shipped in examples/.
std::string sampleFile();

}  // namespace ovela::testing

#endif  // OVELA_TESTS_TEMP_FILE_H
