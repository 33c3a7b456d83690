#ifndef OVELA_TUNE_LSP_SERVER_H
#define OVELA_TUNE_LSP_SERVER_H

#include <istream>
#include <map>
#include <memory>
#include <mutex>
#include <ostream>
#include <set>
#include <string>

#include "LspDiagnostics.h"
#include "LspDocument.h"
#include "LspJson.h"
#include "LspTransport.h"

namespace ovela::tune::lsp {

class LspWorker;

// The protocol's error codes.
enum ErrorCode {
    PARSE_ERROR = -32700,
    INVALID_REQUEST = -32600,
    METHOD_NOT_FOUND = -32601,
    INVALID_PARAMS = -32602,
    SERVER_NOT_INITIALIZED = -32002,
    REQUEST_CANCELLED = -32800,
};

// A language server for tuning files on a pair of streams: it reads the
// client's messages on one thread and loads texts and answers requests on
// another, so that a slow load never holds up reading. Whatever the client
// sends, it answers with the protocol's errors and goes on.
class LspServer {
  public:
    LspServer(std::istream& in, std::ostream& out);
    ~LspServer();
    LspServer(const LspServer&) = delete;
    LspServer& operator=(const LspServer&) = delete;

    // Serves until the client's exit or the end of the input. Returns the
    // exit code: 0 for an exit after shutdown, 1 otherwise.
    int run();

  private:
    enum class State { STARTING, RUNNING, SHUT_DOWN };
    struct OpenDocument {
        std::string text;
        long version = 0;
        std::shared_ptr<DocumentLoad> load;
    };
    using Handler = Json (LspServer::*)(DocumentLoad& load, const Json& params);

    // Handles one message; false when the client asked the server to exit.
    bool handle(const std::string& body);
    bool handleMessage(const Json& message);
    void handleNotification(const std::string& method, const Json& params);
    void handleRequest(const Json& id, const std::string& method, const Json& params);
    Json initialize(const Json& params);
    // Answers a request about one document on the worker, from the load of
    // its current text.
    void answerLater(const Json& id, const Json& params, Handler handler);

    void openDocument(const Json& params);
    void changeDocument(const Json& params);
    void closeDocument(const Json& params);
    // Loads the current text of `uri` unless its last load is of it, and
    // publishes its diagnostics; on the worker. Returns the load.
    std::shared_ptr<DocumentLoad> refresh(const std::string& uri);
    void publish(DocumentLoad& load);

    Json hover(DocumentLoad& load, const Json& params);
    Json completion(DocumentLoad& load, const Json& params);
    Json definition(DocumentLoad& load, const Json& params);
    Json references(DocumentLoad& load, const Json& params);
    Json symbols(DocumentLoad& load, const Json& params);
    Json formatting(DocumentLoad& load, const Json& params);
    Json codeAction(DocumentLoad& load, const Json& params);

    void respond(const Json& id, Json result);
    void respondError(const Json& id, int code, const std::string& message);
    void notify(const std::string& method, Json params);
    bool takeCancelled(const Json& id);
    ServerSettings settings();

    LspTransport mTransport;
    State mState = State::STARTING;
    PositionEncoding mEncoding = PositionEncoding::UTF16;

    std::mutex mLock;  // guards what follows, shared with the worker
    std::map<std::string, OpenDocument> mDocuments;
    ServerSettings mSettings;
    std::set<std::string> mCancelled;  // ids of requests the client cancelled

    // Last: its thread ends, after its last task, before the rest goes.
    std::unique_ptr<LspWorker> mWorker;
};

}  // namespace ovela::tune::lsp

#endif  // OVELA_TUNE_LSP_SERVER_H
