#ifndef OVELA_TESTS_LOG_CAPTURE_H
#define OVELA_TESTS_LOG_CAPTURE_H

#include <android/log.h>

#include <string>
#include <vector>

namespace ovela::testing {

struct LogLine {
    int priority;
    std::string tag;
    std::string message;

    bool operator==(const LogLine& other) const {
        return priority == other.priority && tag == other.tag && message == other.message;
    }
};

// Collects every line that the library sends to liblog while it is alive,
// debug lines included, and restores the default logger afterwards.
class LogCapture {
  public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<LogLine>& lines() const;
    // Messages of one tag and priority (ANDROID_LOG_ERROR, ...), in order.
    std::vector<std::string> messages(const std::string& tag, int priority) const;

  private:
    int mPreviousMinimumPriority;
};

}  // namespace ovela::testing

#endif  // OVELA_TESTS_LOG_CAPTURE_H
