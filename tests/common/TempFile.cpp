#include "TempFile.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

namespace ovela::testing {

TempFile::TempFile(const std::string& contents, const std::string& suffix) {
    std::string pattern = "/tmp/ovela-test-XXXXXX" + suffix;
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int fd = mkstemps(name.data(), static_cast<int>(suffix.size()));
    if (fd < 0) {
        std::abort();
    }
    size_t written = 0;
    while (written < contents.size()) {
        ssize_t n = write(fd, contents.data() + written, contents.size() - written);
        if (n <= 0) {
            std::abort();
        }
        written += static_cast<size_t>(n);
    }
    close(fd);
    mPath = name.data();
}

TempFile::~TempFile() {
    unlink(mPath.c_str());
}

std::string fileText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string dataFile(const std::string& name) {
    return std::string(OVELA_TEST_DATA_DIR) + "/" + name;
}

std::string sampleFile() {
    return OVELA_SAMPLE_TUNING_FILE;
}

}  // namespace ovela::testing
