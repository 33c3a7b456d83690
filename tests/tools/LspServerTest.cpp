#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "LspServer.h"
#include "TuningFileCorpus.h"

namespace ovela::tune::lsp {
namespace {

using ::ovela::testing::replaced;
using ::ovela::testing::sampleText;
using ::testing::ElementsAre;
using ::testing::Pair;

constexpr char kUri[] = "file:///work/qrn%20test.xml";

// A profile that loads with no finding above a note.
const std::string kProfile = R"(<ovela_tuning>
    <preset type="ieq" id="ieq_warm">
        <ieq>
            <bands>
                <band_ieq frequency="65" target="120"/>
            </bands>
        </ieq>
    </preset>
    <profile id="0" name="dynamic">
        <settings>
            <ieq-amount value="10"/>
        </settings>
        <include preset="ieq_warm"/>
    </profile>
</ovela_tuning>
)";

std::string framed(const std::string& body) {
    return "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

Json request(int id, const std::string& method, Json params = Json::object()) {
    return {{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", std::move(params)}};
}

Json notification(const std::string& method, Json params = Json::object()) {
    return {{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}};
}

Json initialize(Json options = Json::object(), Json capabilities = Json::object()) {
    return request(0, "initialize",
                   {{"capabilities", capabilities}, {"initializationOptions", options}});
}

Json open(const std::string& text) {
    return notification(
        "textDocument/didOpen",
        {{"textDocument", {{"uri", kUri}, {"languageId", "xml"}, {"version", 1}, {"text", text}}}});
}

Json at(int line, int character) {
    return {{"textDocument", {{"uri", kUri}}},
            {"position", {{"line", line}, {"character", character}}}};
}

// What the server wrote for one stream of bytes from its client, and how it
// ended.
struct Session {
    int exitCode;
    std::vector<Json> messages;

    // The answer to request `id`.
    Json answer(int id) const {
        for (const Json& message : messages) {
            if (message.contains("id") && message["id"] == id) {
                return message;
            }
        }
        ADD_FAILURE() << "no answer to " << id;
        return nullptr;
    }
    // The error codes of the answers with a null id, in order.
    std::vector<int> anonymousErrors() const {
        std::vector<int> codes;
        for (const Json& message : messages) {
            if (message.contains("id") && message["id"].is_null()) {
                codes.push_back(message["error"]["code"]);
            }
        }
        return codes;
    }
    // The diagnostics last published, as rule and range start.
    std::vector<std::pair<std::string, std::pair<int, int>>> lastDiagnostics() const {
        std::vector<std::pair<std::string, std::pair<int, int>>> found;
        for (const Json& message : messages) {
            if (message.value("method", "") == "textDocument/publishDiagnostics") {
                found.clear();
                for (const Json& d : message["params"]["diagnostics"]) {
                    found.push_back(
                        {d["code"],
                         {d["range"]["start"]["line"], d["range"]["start"]["character"]}});
                }
            }
        }
        return found;
    }
};

Session serve(const std::string& bytes) {
    std::istringstream in(bytes);
    std::ostringstream out;
    int exitCode;
    {
        // The worker finishes what it holds when the server goes.
        LspServer server(in, out);
        exitCode = server.run();
    }
    Session session{exitCode, {}};
    const std::string written = out.str();
    for (size_t at = 0; (at = written.find("Content-Length: ", at)) != std::string::npos;) {
        const size_t length = std::stoul(written.substr(at + 16));
        const size_t body = written.find("\r\n\r\n", at) + 4;
        session.messages.push_back(Json::parse(written.substr(body, length)));
        at = body + length;
    }
    return session;
}

Session serveAll(const std::vector<Json>& messages) {
    std::string bytes;
    for (const Json& message : messages) {
        bytes += framed(message.dump());
    }
    return serve(bytes);
}

int errorOf(const Json& answer) {
    return answer.contains("error") ? answer["error"]["code"].get<int>() : 0;
}

TEST(LspServerTest, FramingToleratesWhatClientsSend) {
    // Header names in any case, a Content-Type, LF-only lines, a body with
    // multi-byte characters: all read; a header without a length is skipped.
    const std::string body = request(1, "initialize", {{"capabilities", {}}}).dump();
    const std::string second = request(2, "shutdown").dump();
    const std::string comment = R"({"jsonrpc":"2.0","method":"$/note","params":{"x":"hé ✓"}})";
    const Session session =
        serve("content-length: " + std::to_string(body.size()) +
              "\r\nContent-Type: application/vscode-jsonrpc; charset=utf-8\r\n\r\n" + body +
              "Content-Type: x\r\n\r\n" + framed(comment) +
              "Content-Length:" + std::to_string(second.size()) + "\n\n" + second +
              framed(notification("exit").dump()));
    EXPECT_EQ(session.exitCode, 0);
    EXPECT_TRUE(session.answer(1)["result"].contains("capabilities"));
    EXPECT_EQ(session.answer(2)["result"], nullptr);
    EXPECT_THAT(session.anonymousErrors(), ElementsAre(PARSE_ERROR));
}

TEST(LspServerTest, BadClientsGetTheProtocolsErrorsAndTheServerGoesOn) {
    std::string bytes = framed(request(1, "textDocument/hover", at(0, 0)).dump());  // too early
    bytes += framed("{\"jsonrpc\": \"2.0\", \"id\": 2, \"method\": ");              // cut short
    bytes += framed("[1, 2]");                                                      // a batch
    bytes += framed(R"({"id": 3, "method": "initialize"})");                        // no jsonrpc
    bytes += framed(R"({"jsonrpc": "2.0", "id": {"a": 1}, "method": "x"})");        // an object id
    bytes += framed(initialize().dump());
    bytes += framed(initialize().dump());
    bytes += framed(request(4, "workspace/frobnicate").dump());
    bytes += framed(notification("$/frobnicate").dump());  // ignored, as the protocol says
    bytes += framed(request(5, "textDocument/hover", {{"textDocument", {{"uri", kUri}}}}).dump());
    bytes += framed(request(6, "textDocument/hover", at(0, 0)).dump());  // not open
    bytes += framed(request(7, "shutdown").dump());
    bytes += framed(request(8, "textDocument/hover", at(0, 0)).dump());
    bytes += framed(notification("exit").dump());
    const Session session = serve(bytes);
    EXPECT_EQ(errorOf(session.answer(1)), SERVER_NOT_INITIALIZED);
    EXPECT_THAT(session.anonymousErrors(),
                ElementsAre(PARSE_ERROR, INVALID_REQUEST, INVALID_REQUEST));
    EXPECT_EQ(errorOf(session.answer(3)), INVALID_REQUEST);
    EXPECT_EQ(errorOf(session.answer(0)), 0);
    EXPECT_EQ(errorOf(session.answer(4)), METHOD_NOT_FOUND);
    EXPECT_EQ(errorOf(session.answer(5)), INVALID_PARAMS);
    EXPECT_EQ(errorOf(session.answer(6)), INVALID_PARAMS);
    EXPECT_EQ(errorOf(session.answer(8)), INVALID_REQUEST);
    EXPECT_EQ(session.exitCode, 0);
    // The second initialize is refused: two answers carry id 0.
    EXPECT_EQ(std::count_if(session.messages.begin(), session.messages.end(),
                            [](const Json& m) { return m.value("id", Json()) == 0; }),
              2);
}

TEST(LspServerTest, EndsWithoutShutdownOrOnAClaimPastTheLimit) {
    EXPECT_EQ(serveAll({initialize(), notification("exit")}).exitCode, 1);
    EXPECT_EQ(serve(framed(initialize().dump())).exitCode, 1);
    // A length past the limit is neither allocated nor waited for.
    const Session huge =
        serve(framed(initialize().dump()) + "Content-Length: 999999999999\r\n\r\n{}");
    EXPECT_EQ(huge.exitCode, 1);
    EXPECT_THAT(huge.anonymousErrors(), ElementsAre(INVALID_REQUEST));
}

TEST(LspServerTest, DiagnosticsFollowTheUnsavedText) {
    // The typo comes in as an incremental change of line 10: "ieq-amount" at
    // characters 13 to 23 becomes "ieq-amout".
    const Json change =
        notification("textDocument/didChange", {{"textDocument", {{"uri", kUri}, {"version", 2}}},
                                                {"contentChanges",
                                                 {{{"range",
                                                    {{"start", {{"line", 10}, {"character", 13}}},
                                                     {"end", {{"line", 10}, {"character", 23}}}}},
                                                   {"text", "ieq-amout"}}}}});
    const Session session = serveAll(
        {initialize(), open(kProfile), change, request(1, "shutdown"), notification("exit")});
    EXPECT_THAT(session.lastDiagnostics(), ElementsAre(Pair("unknown-element", Pair(10, 12))));
    const Json& last = session.messages[session.messages.size() - 2];
    ASSERT_EQ(last["method"], "textDocument/publishDiagnostics");
    EXPECT_EQ(last["params"]["version"], 2);
    EXPECT_EQ(last["params"]["diagnostics"][0]["source"], "ovela-tune");
    EXPECT_EQ(last["params"]["diagnostics"][0]["severity"], 2);
    EXPECT_EQ(last["params"]["diagnostics"][0]["range"]["end"],
              Json({{"line", 10}, {"character", 35}}));
}

TEST(LspServerTest, ColumnsAreCountedInTheNegotiatedEncoding) {
    // "𝄞" is one character, two UTF-16 units and four bytes; the finding on
    // the attribute after it moves by as much.
    const std::string text =
        replaced(kProfile, R"(<ieq-amount value="10"/>)", R"(<!--𝄞--><ieq-amount value="TRUE"/>)");
    auto startOf = [&](Json capabilities) {
        const Session session = serveAll({initialize(Json::object(), capabilities), open(text),
                                          request(1, "shutdown"), notification("exit")});
        for (const auto& [rule, start] : session.lastDiagnostics()) {
            if (rule == "truth-word" || rule == "not-a-number") {
                return start.second;
            }
        }
        return -1;
    };
    const int utf16 = startOf(Json::object());
    const int utf8 = startOf({{"general", {{"positionEncodings", {"utf-8", "utf-16"}}}}});
    const int utf32 = startOf({{"general", {{"positionEncodings", {"utf-32"}}}}});
    EXPECT_EQ(utf16, 12 + 9 + 12);
    EXPECT_EQ(utf8, utf16 + 2);
    EXPECT_EQ(utf32, utf16 - 1);
}

TEST(LspServerTest, SettingsChooseWhatIsShown) {
    const std::string text = sampleText();
    auto shown = [&](Json options, std::vector<Json> more = {}) {
        std::vector<Json> messages = {initialize(options), open(text)};
        messages.insert(messages.end(), more.begin(), more.end());
        messages.push_back(request(1, "shutdown"));
        messages.push_back(notification("exit"));
        return serveAll(messages).lastDiagnostics().size();
    };
    const size_t all = shown(Json::object());
    EXPECT_GT(all, 1u);  // the sample's notes, which an editor shows by default
    EXPECT_EQ(shown({{"severity", "warning"}}), 0u);
    EXPECT_EQ(shown({{"disable", {"never-sent"}}}), all - 26);
    EXPECT_EQ(shown(Json::object(),
                    {notification("workspace/didChangeConfiguration",
                                  {{"settings", {{"ovela-tune", {{"severity", "error"}}}}}})}),
              0u);
}

}  // namespace
}  // namespace ovela::tune::lsp
