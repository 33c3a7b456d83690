#include "LspServer.h"

#include "LspFeatures.h"
#include "LspWorker.h"

namespace ovela::tune::lsp {

namespace {

const Json& documentOf(const Json& params) {
    return objectAt(params, "textDocument");
}

bool validId(const Json& id) {
    return id.is_number_integer() || id.is_string();
}

// The client prefers the first of the encodings it offers that the server
// counts in; without a choice the protocol counts in UTF-16.
PositionEncoding negotiatedEncoding(const Json& capabilities) {
    const Json* offered = member(objectAt(capabilities, "general"), "positionEncodings");
    if (offered != nullptr && offered->is_array()) {
        for (const Json& name : *offered) {
            for (PositionEncoding encoding :
                 {PositionEncoding::UTF8, PositionEncoding::UTF16, PositionEncoding::UTF32}) {
                if (name.is_string() && name.get<std::string>() == encodingName(encoding)) {
                    return encoding;
                }
            }
        }
    }
    return PositionEncoding::UTF16;
}

}  // namespace

LspServer::LspServer(std::istream& in, std::ostream& out)
    : mTransport(in, out), mWorker(std::make_unique<LspWorker>()) {}

LspServer::~LspServer() = default;

int LspServer::run() {
    std::string body;
    while (true) {
        switch (mTransport.read(&body)) {
            case LspTransport::Read::END:
                return 1;
            case LspTransport::Read::BAD_HEADER:
                respondError(nullptr, PARSE_ERROR, "a message header without a Content-Length");
                break;
            case LspTransport::Read::TOO_LARGE:
                respondError(
                    nullptr, INVALID_REQUEST,
                    "a message past " + std::to_string(kMaxMessageBytes >> 20) + " MiB, not read");
                break;
            case LspTransport::Read::MESSAGE:
                if (!handle(body)) {
                    return mState == State::SHUT_DOWN ? 0 : 1;
                }
                break;
        }
    }
}

bool LspServer::handle(const std::string& body) {
    const Json message = Json::parse(body, nullptr, false);
    if (message.is_discarded()) {
        respondError(nullptr, PARSE_ERROR, "not JSON");
        return true;
    }
    return handleMessage(message);
}

bool LspServer::handleMessage(const Json& message) {
    const Json* id = member(message, "id");
    const auto method = stringAt(message, "method");
    if (message.is_object() && !method && id != nullptr &&
        (member(message, "result") != nullptr || member(message, "error") != nullptr)) {
        return true;  // the answer to a request of the server's: it sends none
    }
    if (!message.is_object() || stringAt(message, "jsonrpc") != "2.0" || !method ||
        (id != nullptr && !validId(*id))) {
        respondError(id != nullptr && validId(*id) ? *id : Json(nullptr), INVALID_REQUEST,
                     "not a JSON-RPC 2.0 request or notification");
        return true;
    }
    const Json* params = member(message, "params");
    const Json& given = params != nullptr ? *params : Json::object();
    if (id == nullptr) {
        if (*method == "exit") {
            return false;
        }
        handleNotification(*method, given);
    } else {
        handleRequest(*id, *method, given);
    }
    return true;
}

void LspServer::handleNotification(const std::string& method, const Json& params) {
    // Before initialize the protocol drops notifications; after shutdown
    // nothing changes any more.
    if (mState != State::RUNNING) {
        return;
    }
    if (method == "textDocument/didOpen") {
        openDocument(params);
    } else if (method == "textDocument/didChange") {
        changeDocument(params);
    } else if (method == "textDocument/didClose") {
        closeDocument(params);
    } else if (method == "workspace/didChangeConfiguration") {
        const Json& all = objectAt(params, "settings");
        {
            std::lock_guard<std::mutex> lock(mLock);
            readSettings(member(all, "ovela-tune") != nullptr ? objectAt(all, "ovela-tune") : all,
                         &mSettings);
        }
        // Every open document is shown again under the new settings.
        mWorker->post([this] {
            std::vector<std::shared_ptr<DocumentLoad>> loads;
            {
                std::lock_guard<std::mutex> lock(mLock);
                for (const auto& [uri, document] : mDocuments) {
                    if (document.load != nullptr) {
                        loads.push_back(document.load);
                    }
                }
            }
            for (const auto& load : loads) {
                publish(*load);
            }
        });
    } else if (method == "$/cancelRequest") {
        const Json* id = member(params, "id");
        if (id != nullptr && validId(*id)) {
            std::lock_guard<std::mutex> lock(mLock);
            mCancelled.insert(id->dump());
        }
    }
    // Any other notification ("initialized", "$/setTrace", didSave, ...) asks
    // nothing of this server.
}

void LspServer::handleRequest(const Json& id, const std::string& method, const Json& params) {
    if (method == "initialize") {
        if (mState != State::STARTING) {
            respondError(id, INVALID_REQUEST, "initialize was sent before");
            return;
        }
        respond(id, initialize(params));
        mState = State::RUNNING;
        return;
    }
    if (mState == State::STARTING) {
        respondError(id, SERVER_NOT_INITIALIZED, "the server is not initialized");
        return;
    }
    if (mState == State::SHUT_DOWN) {
        respondError(id, INVALID_REQUEST, "the server is shut down");
        return;
    }
    if (method == "shutdown") {
        mState = State::SHUT_DOWN;
        // Answered after what the worker holds, so that nothing follows it.
        mWorker->post([this, id] { respond(id, nullptr); });
        return;
    }
    // The requests about one document, and whether they name a position in it.
    static const std::map<std::string, std::pair<bool, Handler>> kRequests = {
        {"textDocument/hover", {true, &LspServer::hover}},
        {"textDocument/completion", {true, &LspServer::completion}},
        {"textDocument/definition", {true, &LspServer::definition}},
        {"textDocument/references", {true, &LspServer::references}},
        {"textDocument/documentSymbol", {false, &LspServer::symbols}},
        {"textDocument/formatting", {false, &LspServer::formatting}},
        {"textDocument/codeAction", {false, &LspServer::codeAction}},
    };
    const auto found = kRequests.find(method);
    if (found == kRequests.end()) {
        respondError(id, METHOD_NOT_FOUND, "no method " + method);
        return;
    }
    const auto uri = stringAt(documentOf(params), "uri");
    if (!uri || (found->second.first && !positionOf(objectAt(params, "position")))) {
        respondError(id, INVALID_PARAMS,
                     found->second.first ? "the request names no document or no position in it"
                                         : "the request names no document");
        return;
    }
    {
        std::lock_guard<std::mutex> lock(mLock);
        if (mDocuments.count(*uri) == 0) {
            respondError(id, INVALID_PARAMS, *uri + " is not open");
            return;
        }
    }
    answerLater(id, params, found->second.second);
}

Json LspServer::initialize(const Json& params) {
    mEncoding = negotiatedEncoding(objectAt(params, "capabilities"));
    {
        std::lock_guard<std::mutex> lock(mLock);
        readSettings(objectAt(params, "initializationOptions"), &mSettings);
    }
    return {{"capabilities",
             {{"positionEncoding", encodingName(mEncoding)},
              {"textDocumentSync", {{"openClose", true}, {"change", 2}}},
              {"hoverProvider", true},
              {"completionProvider", {{"triggerCharacters", {"<", " ", "\""}}}},
              {"definitionProvider", true},
              {"referencesProvider", true},
              {"documentSymbolProvider", true},
              {"documentFormattingProvider", true},
              {"codeActionProvider", {{"codeActionKinds", {"quickfix"}}}}}},
            {"serverInfo", {{"name", "ovela-tune"}, {"version", OVELA_VERSION}}}};
}

void LspServer::answerLater(const Json& id, const Json& params, Handler handler) {
    const std::string uri = *stringAt(documentOf(params), "uri");
    mWorker->post([this, id, params, handler, uri] {
        if (takeCancelled(id)) {
            respondError(id, REQUEST_CANCELLED, "cancelled");
            return;
        }
        const std::shared_ptr<DocumentLoad> load = refresh(uri);
        if (load == nullptr) {
            respondError(id, INVALID_PARAMS, uri + " is not open");
            return;
        }
        respond(id, (this->*handler)(*load, params));
    });
}

void LspServer::openDocument(const Json& params) {
    const Json& document = documentOf(params);
    const auto uri = stringAt(document, "uri");
    const auto text = stringAt(document, "text");
    if (!uri || !text) {
        return;
    }
    {
        std::lock_guard<std::mutex> lock(mLock);
        mDocuments[*uri] = {*text, integerAt(document, "version").value_or(0), nullptr};
    }
    mWorker->post([this, uri = *uri] { refresh(uri); });
}

void LspServer::changeDocument(const Json& params) {
    const Json& document = documentOf(params);
    const auto uri = stringAt(document, "uri");
    const Json* changes = member(params, "contentChanges");
    if (!uri || changes == nullptr || !changes->is_array()) {
        return;
    }
    {
        std::lock_guard<std::mutex> lock(mLock);
        const auto found = mDocuments.find(*uri);
        if (found == mDocuments.end()) {
            return;
        }
        for (const Json& change : *changes) {
            applyChange(change, mEncoding, &found->second.text);
        }
        found->second.version = integerAt(document, "version").value_or(found->second.version + 1);
    }
    // Changes that come while a load runs are taken together by the next
    // one: no text is loaded that a newer one has replaced.
    mWorker->post([this, uri = *uri] { refresh(uri); });
}

void LspServer::closeDocument(const Json& params) {
    const auto uri = stringAt(documentOf(params), "uri");
    if (!uri) {
        return;
    }
    {
        std::lock_guard<std::mutex> lock(mLock);
        mDocuments.erase(*uri);
    }
    mWorker->post([this, uri = *uri] {
        notify("textDocument/publishDiagnostics", {{"uri", uri}, {"diagnostics", Json::array()}});
    });
}

std::shared_ptr<DocumentLoad> LspServer::refresh(const std::string& uri) {
    std::string text;
    long version = 0;
    {
        std::lock_guard<std::mutex> lock(mLock);
        const auto found = mDocuments.find(uri);
        if (found == mDocuments.end()) {
            return nullptr;
        }
        const OpenDocument& document = found->second;
        if (document.load != nullptr && document.load->text() == document.text) {
            return document.load;
        }
        text = document.text;
        version = document.version;
    }
    auto load = std::make_shared<DocumentLoad>(uri, std::move(text), version, mEncoding);
    {
        std::lock_guard<std::mutex> lock(mLock);
        const auto found = mDocuments.find(uri);
        if (found == mDocuments.end()) {
            return nullptr;
        }
        found->second.load = load;
    }
    publish(*load);
    return load;
}

void LspServer::publish(DocumentLoad& load) {
    notify("textDocument/publishDiagnostics",
           {{"uri", load.uri()},
            {"version", load.version()},
            {"diagnostics", diagnosticsOf(load.file(), settings(), load.uri(), load.positions())}});
}

Json LspServer::hover(DocumentLoad& load, const Json& params) {
    return hoverAt(load, *positionOf(objectAt(params, "position")), settings());
}

Json LspServer::completion(DocumentLoad& load, const Json& params) {
    return completionAt(load, *positionOf(objectAt(params, "position")));
}

Json LspServer::definition(DocumentLoad& load, const Json& params) {
    return definitionAt(load, *positionOf(objectAt(params, "position")));
}

Json LspServer::references(DocumentLoad& load, const Json& params) {
    return referencesAt(load, *positionOf(objectAt(params, "position")));
}

Json LspServer::symbols(DocumentLoad& load, const Json&) {
    return documentSymbols(load);
}

Json LspServer::formatting(DocumentLoad& load, const Json&) {
    return formattingEdits(load);
}

Json LspServer::codeAction(DocumentLoad& load, const Json& params) {
    return codeActions(load, objectAt(params, "range"), settings());
}

void LspServer::respond(const Json& id, Json result) {
    mTransport.write(Json{{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}}.dump(
        -1, ' ', false, Json::error_handler_t::replace));
}

void LspServer::respondError(const Json& id, int code, const std::string& message) {
    mTransport.write(
        Json{{"jsonrpc", "2.0"}, {"id", id}, {"error", {{"code", code}, {"message", message}}}}.dump(
            -1, ' ', false, Json::error_handler_t::replace));
}

void LspServer::notify(const std::string& method, Json params) {
    mTransport.write(
        Json{{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}}.dump(
            -1, ' ', false, Json::error_handler_t::replace));
}

bool LspServer::takeCancelled(const Json& id) {
    std::lock_guard<std::mutex> lock(mLock);
    return mCancelled.erase(id.dump()) != 0;
}

ServerSettings LspServer::settings() {
    std::lock_guard<std::mutex> lock(mLock);
    return mSettings;
}

}  // namespace ovela::tune::lsp
