#define LOG_TAG "TuningFileParser"

#include "TuningFileBytes.h"

#include <fcntl.h>
#include <libxml/xmlIO.h>
#include <log/log.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "LoadReport.h"

namespace ovela {

namespace {

// The size of the pieces in which a compressed file's bytes follow.
constexpr size_t kPieceSize = 64 << 10;

// An open file, closed with its owner.
class OpenFile {
  public:
    explicit OpenFile(const std::string& path)
        : mFd(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~OpenFile() {
        if (mFd >= 0) {
            close(mFd);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int fd() const { return mFd; }

  private:
    const int mFd;
};

// What a file that is not a regular file is, for the messages.
const char* kindOf(mode_t mode) {
    if (S_ISDIR(mode)) {
        return "a directory";
    }
    if (S_ISFIFO(mode)) {
        return "a FIFO";
    }
    if (S_ISCHR(mode)) {
        return "a character device";
    }
    if (S_ISBLK(mode)) {
        return "a block device";
    }
    if (S_ISSOCK(mode)) {
        return "a socket";
    }
    return "not a regular file";
}

std::string openProblem(int error) {
    return error == ENOENT ? "no such file" : strerror(error);
}

std::string mebibytes(size_t bytes) {
    return std::to_string(bytes >> 20) + " MiB";
}

// Logs why the file is not read, and tells `report`: the rule's message with
// `slots`, which name the file.
bool refuse(Rule rule, Slots slots, LoadReport* report) {
    ALOGE("%s() %s", "readTuningFile", messageOf(ruleOf(rule), slots).c_str());
    ALOGE("fail to call xmlReadFile,  %d", 138);
    if (report != nullptr) {
        report->add(rule, Place(), slots);
    }
    return false;
}

// Reads what `read` hands over into `bytes`: first `expected` bytes in one
// piece, then what follows in pieces, up to one byte past `limit`. False when
// a read fails.
template <typename Read>
bool readAll(Read read, size_t expected, size_t limit, std::string* bytes) {
    bytes->resize(expected);
    size_t filled = 0;
    long count = 1;
    while (filled < expected && count > 0) {
        count = read(bytes->data() + filled, expected - filled);
        filled += std::max(count, 0L);
    }
    bytes->resize(filled);
    char piece[kPieceSize];
    if (count > 0 && (count = read(piece, sizeof(piece))) > 0) {
        // Decompressed bytes follow: room for all that may come, taken up
        // only as it fills, so that the string never holds two copies.
        bytes->reserve(limit + sizeof(piece));
        bytes->append(piece, count);
    }
    while (count > 0 && bytes->size() <= limit) {
        count = read(piece, sizeof(piece));
        bytes->append(piece, std::max(count, 0L));
    }
    return count >= 0;
}

}  // namespace

bool readTuningFile(const std::string& path, std::string* bytes, LoadReport* report) {
    if (path.empty()) {
        ALOGE("invalide tuning file path, %d", 125);
        if (report != nullptr) {
            report->add(Rule::FILE_UNREADABLE, Place(),
                        {{"file", "\"\""}, {"why", "an empty path names no file"}});
        }
        return false;
    }
    // Opening a FIFO without a writer, or a device, would block: open without
    // blocking, and read only a regular file.
    const OpenFile file(path);
    struct stat status;
    if (file.fd() < 0 || fstat(file.fd(), &status) != 0) {
        return refuse(Rule::FILE_UNREADABLE, {{"file", path}, {"why", openProblem(errno)}}, report);
    }
    if (S_ISDIR(status.st_mode)) {
        return refuse(Rule::FILE_UNREADABLE, {{"file", path}, {"why", "a directory, not a file"}},
                      report);
    }
    if (!S_ISREG(status.st_mode)) {
        return refuse(
            Rule::FILE_UNREADABLE,
            {{"file", path}, {"why", std::string(kindOf(status.st_mode)) + ", not a regular file"}},
            report);
    }
    const auto size = static_cast<size_t>(status.st_size);
    if (size > kMaxTuningFileBytes) {
        return refuse(Rule::FILE_SIZE,
                      {{"file", path},
                       {"bytes", std::to_string(size)},
                       {"limit", mebibytes(kMaxTuningFileBytes)}},
                      report);
    }
    // libxml2's input layer reads the file that was checked, through the
    // descriptor's own name: the path may name something else by now.
    const std::string checked = "/proc/self/fd/" + std::to_string(file.fd());
    xmlParserInputBufferPtr input =
        xmlParserInputBufferCreateFilename(checked.c_str(), XML_CHAR_ENCODING_NONE);
    bool read = false;
    if (input != nullptr && input->readcallback != nullptr) {
        read = readAll(
            [input](char* buffer, size_t length) -> long {
                return input->readcallback(input->context, buffer,
                                           static_cast<int>(std::min<size_t>(length, INT32_MAX)));
            },
            size, kMaxTuningDocumentBytes, bytes);
    } else {
        // Without /proc, the bytes as they stand, uncompressed.
        read = readAll([&file](char* buffer,
                               size_t length) -> long { return ::read(file.fd(), buffer, length); },
                       size, kMaxTuningFileBytes, bytes);
    }
    const int error = errno;
    xmlFreeParserInputBuffer(input);
    if (!read) {
        return refuse(Rule::FILE_UNREADABLE, {{"file", path}, {"why", openProblem(error)}}, report);
    }
    if (bytes->size() > kMaxTuningDocumentBytes) {
        bytes->clear();
        bytes->shrink_to_fit();
        return refuse(Rule::DOCUMENT_SIZE,
                      {{"file", path}, {"limit", mebibytes(kMaxTuningDocumentBytes)}}, report);
    }
    return true;
}

bool takeTuningText(const std::string& name, const char* data, size_t size, std::string* bytes,
                    LoadReport* report) {
    if (data == nullptr && size != 0) {
        return refuse(Rule::FILE_UNREADABLE, {{"file", name}, {"why", "no text to read"}}, report);
    }
    if (size > kMaxTuningFileBytes) {
        return refuse(Rule::FILE_SIZE,
                      {{"file", name},
                       {"bytes", std::to_string(size)},
                       {"limit", mebibytes(kMaxTuningFileBytes)}},
                      report);
    }
    bytes->assign(data == nullptr ? "" : data, size);
    return true;
}

}  // namespace ovela
