#include "LintText.h"

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace ovela::tune::lint {

std::string nameOf(const xmlNode* node) {
    return node->name == nullptr ? "" : reinterpret_cast<const char*>(node->name);
}

std::string nameOf(const xmlAttr* attribute) {
    return reinterpret_cast<const char*>(attribute->name);
}

std::string tag(const xmlNode* node) {
    return "<" + nameOf(node) + ">";
}

std::string valueOf(const xmlAttr* attribute) {
    std::string text;
    for (const xmlNode* node = attribute->children; node != nullptr; node = node->next) {
        if (node->type == XML_ENTITY_REF_NODE) {
            text += "&" + nameOf(node) + ";";
        } else if (node->content != nullptr) {
            text += reinterpret_cast<const char*>(node->content);
        }
    }
    return text;
}

std::string attribute(const xmlNode* element, std::string_view name) {
    for (const xmlAttr* a = element->properties; a != nullptr; a = a->next) {
        if (name == reinterpret_cast<const char*>(a->name)) {
            return valueOf(a);
        }
    }
    return "";
}

bool hasAttribute(const xmlNode* element, std::string_view name) {
    for (const xmlAttr* a = element->properties; a != nullptr; a = a->next) {
        if (name == reinterpret_cast<const char*>(a->name)) {
            return true;
        }
    }
    return false;
}

xmlNode* secondChild(const xmlNode* node) {
    if (node == nullptr || node->type != XML_ELEMENT_NODE || node->children == nullptr) {
        return nullptr;
    }
    return node->children->next;
}

bool isWholeNumber(const std::string& text) {
    size_t begin = text.find_first_not_of(" \t\r\n");
    size_t end = text.find_last_not_of(" \t\r\n");
    if (begin == std::string::npos) {
        return false;
    }
    std::string trimmed = text.substr(begin, end - begin + 1);
    size_t digits = trimmed[0] == '-' || trimmed[0] == '+' ? 1 : 0;
    if (digits == trimmed.size()) {
        return false;
    }
    for (size_t i = digits; i < trimmed.size(); ++i) {
        if (!std::isdigit(static_cast<unsigned char>(trimmed[i]))) {
            return false;
        }
    }
    errno = 0;
    long long value = std::strtoll(trimmed.c_str(), nullptr, 10);
    return errno != ERANGE && value >= INT_MIN && value <= INT_MAX;
}

std::vector<std::string> rowFields(const std::string& text) {
    std::vector<std::string> fields;
    size_t start = 0;
    while (start <= text.size()) {
        size_t comma = text.find(',', start);
        size_t end = comma == std::string::npos ? text.size() : comma;
        if (end > start) {
            fields.push_back(text.substr(start, end - start));
        }
        if (comma == std::string::npos) {
            break;
        }
        start = comma + 1;
    }
    return fields;
}

std::string similarName(const std::string& name, const std::vector<std::string_view>& known) {
    auto fold = [](std::string_view text) {
        std::string folded;
        for (char c : text) {
            folded +=
                c == '_' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
        return folded;
    };
    const std::string folded = fold(name);
    for (std::string_view candidate : known) {
        if (candidate != name && fold(candidate) == folded) {
            return " (did you mean " + std::string(candidate) + "?)";
        }
    }
    return "";
}

}  // namespace ovela::tune::lint
