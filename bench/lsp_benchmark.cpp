// The language server's answer to a change of the sample: from the moment the
// editor's didChange is written to the server's pipe to the moment its
// publishDiagnostics is read back, through the reader thread, the worker's
// load of the new text and the framing both ways; and the worker's part of
// it alone (the change applied, the text loaded, the diagnostics written).

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <ext/stdio_filebuf.h>
#include <fstream>
#include <sstream>
#include <thread>

#include "LspDiagnostics.h"
#include "LspDocument.h"
#include "LspServer.h"

namespace ovela::bench {

namespace {

using tune::lsp::Json;

constexpr char kUri[] = "file:///bench/qrn-default.xml";

std::string sampleText() {
    std::ifstream in(OVELA_SAMPLE_TUNING_FILE);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string framed(const Json& message) {
    const std::string body = message.dump();
    return "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

// An edit of the line that holds the first "<ieq-amount" of `sample`: the
// name misspelt on odd versions and put right on even ones.
Json change(const std::string& sample, long version) {
    const size_t at = sample.find("<ieq-amount");
    const long line = static_cast<long>(std::count(sample.begin(), sample.begin() + at, '\n'));
    const long column = static_cast<long>(at - sample.rfind('\n', at) - 1) + 1;
    const bool typo = version % 2 == 1;
    return {{"jsonrpc", "2.0"},
            {"method", "textDocument/didChange"},
            {"params",
             {{"textDocument", {{"uri", kUri}, {"version", version}}},
              {"contentChanges",
               {{{"range",
                  {{"start", {{"line", line}, {"character", column}}},
                   {"end", {{"line", line}, {"character", column + (typo ? 10 : 9)}}}}},
                 {"text", typo ? "ieq-amout" : "ieq-amount"}}}}}}};
}

// Reads messages from the server until a publishDiagnostics comes.
void readDiagnostics(std::istream& in) {
    std::string header;
    while (std::getline(in, header)) {
        if (header.rfind("Content-Length: ", 0) != 0) {
            continue;
        }
        const size_t length = std::stoul(header.substr(16));
        std::getline(in, header);  // the empty line
        std::string body(length, '\0');
        in.read(body.data(), static_cast<std::streamsize>(length));
        if (body.find("textDocument/publishDiagnostics") != std::string::npos) {
            return;
        }
    }
}

void BM_DiagnosticsAfterChange(benchmark::State& state) {
    int toServer[2];
    int fromServer[2];
    if (pipe(toServer) != 0 || pipe(fromServer) != 0) {
        state.SkipWithError("no pipe");
        return;
    }
    __gnu_cxx::stdio_filebuf<char> serverIn(toServer[0], std::ios::in);
    __gnu_cxx::stdio_filebuf<char> serverOut(fromServer[1], std::ios::out);
    __gnu_cxx::stdio_filebuf<char> clientOut(toServer[1], std::ios::out);
    __gnu_cxx::stdio_filebuf<char> clientIn(fromServer[0], std::ios::in);
    std::istream serverInput(&serverIn);
    std::ostream serverOutput(&serverOut);
    std::ostream client(&clientOut);
    std::istream replies(&clientIn);
    std::thread server([&] {
        tune::lsp::LspServer lsp(serverInput, serverOutput);
        lsp.run();
    });

    const std::string text = sampleText();
    client << framed({{"jsonrpc", "2.0"},
                      {"id", 1},
                      {"method", "initialize"},
                      {"params", {{"capabilities", Json::object()}}}})
           << framed({{"jsonrpc", "2.0"},
                      {"method", "textDocument/didOpen"},
                      {"params",
                       {{"textDocument",
                         {{"uri", kUri}, {"languageId", "xml"}, {"version", 0}, {"text", text}}}}}})
           << std::flush;
    readDiagnostics(replies);
    long version = 0;
    for (auto _ : state) {
        client << framed(change(text, ++version)) << std::flush;
        readDiagnostics(replies);
    }
    client << framed({{"jsonrpc", "2.0"}, {"id", 2}, {"method", "shutdown"}})
           << framed({{"jsonrpc", "2.0"}, {"method", "exit"}}) << std::flush;
    server.join();
    state.counters["file_bytes"] = static_cast<double>(text.size());
}

void BM_LoadAndDiagnoseChangedText(benchmark::State& state) {
    const std::string sample = sampleText();
    std::string text = sample;
    const tune::lsp::ServerSettings settings;
    long version = 0;
    for (auto _ : state) {
        // The edit is placed by the sample, whose first "<ieq-amount" it toggles.
        const Json edit = change(sample, ++version)["params"]["contentChanges"][0];
        tune::lsp::applyChange(edit, tune::PositionEncoding::UTF16, &text);
        tune::lsp::DocumentLoad load(kUri, text, version, tune::PositionEncoding::UTF16);
        benchmark::DoNotOptimize(
            tune::lsp::diagnosticsOf(load.file(), settings, kUri, load.positions()).dump());
    }
}

BENCHMARK(BM_DiagnosticsAfterChange)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_LoadAndDiagnoseChangedText)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace ovela::bench
