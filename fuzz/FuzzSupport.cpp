#include "FuzzSupport.h"

#include <android/log.h>
#include <libxml/xmlerror.h>
#include <ovela/ProfileParamParser.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace ovela::fuzz {

namespace {

void dropLogLine(const __android_logger_data*, const char*) {}

void dropXmlMessage(void*, const char*, ...) {}

// Every value is read into this so that the reads cannot be optimized away.
volatile int32_t gValueSink;

}  // namespace

void silenceDiagnostics() {
    __android_log_set_logger(dropLogLine);
    xmlSetGenericErrorFunc(nullptr, dropXmlMessage);
}

void require(bool condition, const char* what) {
    if (!condition) {
        fprintf(stderr, "invariant broken: %s\n", what);
        abort();
    }
}

ArrayWalk walkPackedArray(void* data, size_t size) {
    const int length = static_cast<int>(size);
    const auto* begin = static_cast<const uint8_t*>(data);
    ProfileParamParser parser(data, length);
    ArrayWalk walk = {parser.validate(), 0, 0, 0, 0};
    if (!parser.begin()) {
        require(!walk.valid, "validate() accepted an array whose header cannot be read");
        return walk;
    }
    walk.header = parser.getProfileId();
    walk.count = parser.getParamCount();
    walk.bytesUsed = 2 * sizeof(int32_t);
    while (parser.next()) {
        require(parser.getValueCount() >= 0, "an entry has a negative value count");
        const auto* values = reinterpret_cast<const uint8_t*>(parser.getValues());
        const size_t valueBytes = static_cast<size_t>(parser.getValueCount()) * sizeof(int32_t);
        require(values >= begin && values + valueBytes <= begin + size,
                "an entry's values lie outside the array");
        for (size_t offset = 0; offset < valueBytes; offset += sizeof(int32_t)) {
            int32_t value;
            memcpy(&value, values + offset, sizeof(value));
            gValueSink = value;
        }
        walk.entries++;
        walk.bytesUsed += 3 * sizeof(int32_t) + valueBytes;
    }
    require(walk.bytesUsed <= size, "the walk went past the end of the array");
    require(walk.valid == (walk.entries == walk.count),
            "validate() and the walk disagree on the entries");
    return walk;
}

}  // namespace ovela::fuzz
