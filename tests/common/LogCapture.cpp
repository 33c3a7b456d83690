#include "LogCapture.h"

namespace ovela::testing {

namespace {

std::vector<LogLine>& captured() {
    static std::vector<LogLine> lines;
    return lines;
}

void captureLine(const __android_logger_data* data, const char* message) {
    captured().push_back({data->priority, data->tag ? data->tag : "", message ? message : ""});
}

}  // namespace

LogCapture::LogCapture() : mPreviousMinimumPriority(__android_log_get_minimum_priority()) {
    captured().clear();
    __android_log_set_logger(captureLine);
    __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
}

LogCapture::~LogCapture() {
    __android_log_set_logger(__android_log_stderr_logger);
    __android_log_set_minimum_priority(mPreviousMinimumPriority);
    captured().clear();
}

const std::vector<LogLine>& LogCapture::lines() const {
    return captured();
}

std::vector<std::string> LogCapture::messages(const std::string& tag, int priority) const {
    std::vector<std::string> result;
    for (const LogLine& line : captured()) {
        if (line.tag == tag && line.priority == priority) {
            result.push_back(line.message);
        }
    }
    return result;
}

}  // namespace ovela::testing
