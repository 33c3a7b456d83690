#ifndef OVELA_TUNE_LSP_TRANSPORT_H
#define OVELA_TUNE_LSP_TRANSPORT_H

#include <cstddef>
#include <istream>
#include <mutex>
#include <ostream>
#include <string>

namespace ovela::tune::lsp {

// The largest message body that the server reads. A tuning file may take 64
// MiB; its text escaped in JSON takes more.
constexpr size_t kMaxMessageBytes = 160 << 20;

// Messages of the Language Server Protocol on a pair of byte streams: each a
// header of "Name: value" lines, ended by an empty line, whose Content-Length
// gives the bytes of the JSON body that follows.
class LspTransport {
  public:
    LspTransport(std::istream& in, std::ostream& out) : mIn(in), mOut(out) {}

    enum class Read {
        MESSAGE,     // a body was read
        BAD_HEADER,  // a header without a usable Content-Length: skipped
        TOO_LARGE,   // a body past kMaxMessageBytes: skipped unread
        END,         // the input ended
    };
    // Reads the next message. One thread reads.
    Read read(std::string* body);
    // Writes `body` as one message; any thread, one message at a time.
    void write(const std::string& body);

  private:
    // Reads one header line without its line break; false at the end of
    // the input.
    bool readHeaderLine(std::string* line);

    std::istream& mIn;
    std::ostream& mOut;
    std::mutex mWriteLock;
};

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_TRANSPORT_H
