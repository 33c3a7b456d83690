#ifndef OVELA_READER_LOG_H
#define OVELA_READER_LOG_H

#include <android/log.h>

#include <string>
#include <vector>

// The tuning file reader's log lines; not part of the library's interface.
namespace ovela {

// Logs a line as __android_log_print does, unless lines are held on this
// thread.
void readerLog(int priority, const char* tag, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

// Holds the reader's log lines on this thread while it lives. A file is
// read as it streams in, and it may turn out not to be well-formed only at
// its end: then it logs only why, as a file read whole before any section is
// would, and the lines of its sections are dropped.
class HeldReaderLog {
  public:
    HeldReaderLog();
    // Drops what is still held.
    ~HeldReaderLog();
    HeldReaderLog(const HeldReaderLog&) = delete;
    HeldReaderLog& operator=(const HeldReaderLog&) = delete;

    // Logs every held line, in order, and holds no more.
    void release();

  private:
    struct Line {
        int priority;
        const char* tag;
        std::string message;
    };
    friend void readerLog(int, const char*, const char*, ...);

    std::vector<Line> mLines;
    HeldReaderLog* mOuter;
};

}  // namespace ovela

#define READER_LOGE(...) ::ovela::readerLog(ANDROID_LOG_ERROR, LOG_TAG, __VA_ARGS__)
#define READER_LOGD(...) ::ovela::readerLog(ANDROID_LOG_DEBUG, LOG_TAG, __VA_ARGS__)

#endif  // OVELA_READER_LOG_H
