#include <unistd.h>

#include <climits>
#include <nlohmann/json.hpp>

#include "CheckOutput.h"
#include "JsonOutput.h"

namespace ovela::tune {

namespace {

constexpr const char* kSourceRoot = "SRCROOT";

// `path` as a URI reference: the bytes that a URI may not hold as they are,
// percent-encoded.
std::string uriOf(const std::string& path) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string uri;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || std::string_view("/-._~").find(c) != std::string_view::npos) {
            uri += c;
        } else {
            uri += '%';
            uri += kHex[byte >> 4];
            uri += kHex[byte & 0xf];
        }
    }
    return uri;
}

nlohmann::json artifactLocation(const std::string& path) {
    if (!path.empty() && path[0] == '/') {
        return {{"uri", "file://" + uriOf(path)}};
    }
    return {{"uri", uriOf(path)}, {"uriBaseId", kSourceRoot}};
}

nlohmann::json rulesOfTool() {
    nlohmann::json rules = nlohmann::json::array();
    for (const LoadRule& rule : kLoadRules) {
        rules.push_back({{"id", rule.name},
                         {"shortDescription", {{"text", std::string(rule.example) + "."}}},
                         {"fullDescription", {{"text", std::string(rule.message) + "."}}},
                         {"defaultConfiguration", {{"level", severityName(rule.severity)}}}});
    }
    return rules;
}

nlohmann::json resultOf(const LoadFinding& finding, const std::string& path) {
    nlohmann::json location = {{"artifactLocation", artifactLocation(path)}};
    if (finding.line > 0) {
        nlohmann::json region = {{"startLine", finding.line}};
        if (finding.column > 0) {
            region["startColumn"] = finding.column;
            if (finding.endLine >= finding.line && finding.endColumn > 0) {
                region["endLine"] = finding.endLine;
                region["endColumn"] = finding.endColumn;
            }
        }
        location["region"] = region;
    }
    return {{"ruleId", finding.rule},
            {"ruleIndex", ruleNamed(finding.rule) - kLoadRules},
            {"level", severityName(finding.severity)},
            {"message", {{"text", finding.message}}},
            {"locations", {{{"physicalLocation", location}}}}};
}

}  // namespace

void printSarif(const std::vector<CheckedFile>& files, std::ostream& out) {
    nlohmann::json results = nlohmann::json::array();
    for (const CheckedFile& checked : files) {
        for (const LoadFinding& finding : checked.findings.shown) {
            results.push_back(resultOf(finding, checked.file->path));
        }
        // Accepted findings stay in the log, marked, as code-scanning
        // services expect: accepted by the file's comment or by --disable.
        for (const LoadFinding& finding : checked.findings.suppressed) {
            nlohmann::json result = resultOf(finding, checked.file->path);
            result["suppressions"] = {{{"kind", finding.suppressed ? "inSource" : "external"}}};
            results.push_back(result);
        }
    }
    nlohmann::json run = {
        {"tool",
         {{"driver",
           {{"name", "ovela-tune"}, {"version", OVELA_VERSION}, {"rules", rulesOfTool()}}}}},
        {"columnKind", "unicodeCodePoints"},
        {"results", results}};
    char directory[PATH_MAX];
    if (getcwd(directory, sizeof(directory)) != nullptr) {
        run["originalUriBaseIds"] = {
            {kSourceRoot, {{"uri", "file://" + uriOf(std::string(directory) + "/")}}}};
    }
    writeJson({{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
               {"version", "2.1.0"},
               {"runs", {run}}},
              out);
}

}  // namespace ovela::tune
