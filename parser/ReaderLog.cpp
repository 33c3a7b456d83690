#include "ReaderLog.h"

#include <cstdarg>
#include <cstdio>

namespace ovela {

namespace {

thread_local HeldReaderLog* tHolder = nullptr;

}  // namespace

void readerLog(int priority, const char* tag, const char* format, ...) {
    char message[1024];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(message, sizeof(message), format, arguments);
    va_end(arguments);
    if (tHolder != nullptr) {
        tHolder->mLines.push_back({priority, tag, message});
    } else {
        __android_log_write(priority, tag, message);
    }
}

HeldReaderLog::HeldReaderLog() : mOuter(tHolder) {
    tHolder = this;
}

HeldReaderLog::~HeldReaderLog() {
    tHolder = mOuter;
}

void HeldReaderLog::release() {
    tHolder = mOuter;
    for (const Line& line : mLines) {
        __android_log_write(line.priority, line.tag, line.message.c_str());
    }
    mLines.clear();
}

}  // namespace ovela
