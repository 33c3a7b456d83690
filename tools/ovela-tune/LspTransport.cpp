#include "LspTransport.h"

#include <algorithm>
#include <cctype>

namespace ovela::tune::lsp {

namespace {

// A header line longer than this is cut: no header that a client sends
// comes near it.
constexpr size_t kMaxHeaderLine = 4096;

bool sameWord(const std::string& a, const char* b) {
    const std::string other(b);
    return a.size() == other.size() &&
           std::equal(a.begin(), a.end(), other.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

// The value of a Content-Length line; false for any other text.
bool parseLength(const std::string& text, size_t* length) {
    size_t start = text.find_first_not_of(' ');
    size_t end = text.find_last_not_of(' ');
    if (start == std::string::npos || end - start + 1 > 12) {
        return false;
    }
    size_t value = 0;
    for (size_t i = start; i <= end; ++i) {
        if (!std::isdigit(static_cast<unsigned char>(text[i]))) {
            return false;
        }
        value = value * 10 + static_cast<size_t>(text[i] - '0');
    }
    *length = value;
    return true;
}

}  // namespace

bool LspTransport::readHeaderLine(std::string* line) {
    line->clear();
    int c;
    while ((c = mIn.get()) != std::char_traits<char>::eof()) {
        if (c == '\n') {
            if (!line->empty() && line->back() == '\r') {
                line->pop_back();
            }
            return true;
        }
        if (line->size() < kMaxHeaderLine) {
            line->push_back(static_cast<char>(c));
        }
    }
    return false;
}

LspTransport::Read LspTransport::read(std::string* body) {
    std::string line;
    bool lengthGiven = false;
    bool lengthValid = true;
    size_t length = 0;
    bool anyHeader = false;
    while (true) {
        if (!readHeaderLine(&line)) {
            return Read::END;
        }
        if (line.empty()) {
            if (anyHeader) {
                break;
            }
            continue;  // blank lines between messages
        }
        anyHeader = true;
        const size_t colon = line.find(':');
        if (colon != std::string::npos && sameWord(line.substr(0, colon), "Content-Length")) {
            lengthGiven = true;
            lengthValid = parseLength(line.substr(colon + 1), &length);
        }
    }
    if (!lengthGiven || !lengthValid) {
        return Read::BAD_HEADER;
    }
    if (length > kMaxMessageBytes) {
        mIn.ignore(static_cast<std::streamsize>(length));
        return Read::TOO_LARGE;
    }
    // Read in pieces, so that a length that the body does not reach costs
    // no more memory than the body.
    body->clear();
    char piece[64 << 10];
    while (body->size() < length) {
        mIn.read(piece,
                 static_cast<std::streamsize>(std::min(sizeof(piece), length - body->size())));
        if (mIn.gcount() <= 0) {
            return Read::END;
        }
        body->append(piece, static_cast<size_t>(mIn.gcount()));
    }
    return Read::MESSAGE;
}

void LspTransport::write(const std::string& body) {
    std::lock_guard<std::mutex> lock(mWriteLock);
    mOut << "Content-Length: " << body.size() << "\r\n\r\n" << body;
    mOut.flush();
}

}  // namespace ovela::tune::lsp
