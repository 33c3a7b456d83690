#include "TagScan.h"

#include <algorithm>

namespace ovela::tune {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isNameCharacter(char c) {
    return !isSpace(c) && c != '<' && c != '>' && c != '/' && c != '=' && c != '"' && c != '\'';
}

// The elements that the tags before `count` leave open, outermost first. An
// end tag closes the innermost open element of its name, and those inside
// it; one that closes nothing open is a typo and changes nothing.
std::vector<const ScannedTag*> openElements(const std::vector<ScannedTag>& tags, size_t count) {
    std::vector<const ScannedTag*> open;
    for (size_t i = 0; i < count; ++i) {
        const ScannedTag& tag = tags[i];
        if (tag.closing) {
            auto found = std::find_if(open.rbegin(), open.rend(), [&](const ScannedTag* element) {
                return element->name == tag.name;
            });
            if (found != open.rend()) {
                open.erase(std::prev(found.base()), open.end());
            }
        } else if (!tag.selfClosing && tag.end != std::string_view::npos) {
            open.push_back(&tag);
        }
    }
    return open;
}

}  // namespace

std::string ScannedTag::valueOf(std::string_view attribute) const {
    for (const ScannedAttribute& a : attributes) {
        if (a.name == attribute) {
            return a.value;
        }
    }
    return std::string();
}

TagScan::TagScan(std::string_view text) : mText(text) {
    size_t at = 0;
    while ((at = mText.find('<', at)) != std::string_view::npos) {
        const std::string_view rest = mText.substr(at);
        if (rest.rfind("<!--", 0) == 0) {
            at = skipMarkup(at, "<!--", "-->");
        } else if (rest.rfind("<![CDATA[", 0) == 0) {
            at = skipMarkup(at, "<![CDATA[", "]]>");
        } else if (rest.rfind("<?", 0) == 0) {
            at = skipMarkup(at, "<?", "?>");
        } else if (rest.rfind("<!", 0) == 0) {
            // A declaration: its internal subset may hold '>' in brackets.
            const size_t bracket = mText.find('[', at);
            const size_t close = mText.find('>', at);
            at = bracket < close ? skipMarkup(at, "<!", "]>") : skipMarkup(at, "<!", ">");
        } else {
            scanTag(at);
            // A tag that is not ended yet, as while typing, stops at the next
            // '<', where the scan goes on.
            const ScannedTag& tag = mTags.back();
            at = tag.end != std::string_view::npos ? tag.end : mText.find('<', tag.begin + 1);
        }
    }
}

size_t TagScan::skipMarkup(size_t at, std::string_view open, std::string_view close) {
    const size_t found = mText.find(close, at + open.size());
    const size_t end = found == std::string_view::npos ? mText.size() : found + close.size();
    mMarkup.emplace_back(at, end);
    return end;
}

void TagScan::scanTag(size_t at) {
    ScannedTag tag{"", at, std::string_view::npos, false, false, {}};
    size_t i = at + 1;
    if (i < mText.size() && mText[i] == '/') {
        tag.closing = true;
        ++i;
    }
    const size_t nameBegin = i;
    while (i < mText.size() && isNameCharacter(mText[i])) {
        ++i;
    }
    tag.name = std::string(mText.substr(nameBegin, i - nameBegin));
    while (i < mText.size()) {
        const char c = mText[i];
        if (c == '<') {
            break;  // the tag was never ended
        }
        if (c == '>') {
            tag.end = i + 1;
            break;
        }
        if (c == '/' && i + 1 < mText.size() && mText[i + 1] == '>') {
            tag.selfClosing = true;
            tag.end = i + 2;
            break;
        }
        if (!isNameCharacter(c)) {
            ++i;
            continue;
        }
        ScannedAttribute attribute{"", "", i, std::string_view::npos, std::string_view::npos};
        while (i < mText.size() && isNameCharacter(mText[i])) {
            ++i;
        }
        attribute.name = std::string(mText.substr(attribute.nameBegin, i - attribute.nameBegin));
        size_t j = i;
        while (j < mText.size() && isSpace(mText[j])) {
            ++j;
        }
        if (j < mText.size() && mText[j] == '=') {
            ++j;
            while (j < mText.size() && isSpace(mText[j])) {
                ++j;
            }
            if (j < mText.size() && (mText[j] == '"' || mText[j] == '\'')) {
                const char quote = mText[j];
                attribute.valueBegin = j + 1;
                const size_t close = mText.find(quote, j + 1);
                const size_t stop = std::min(close, mText.find('<', j + 1));
                if (close != std::string_view::npos && close == stop) {
                    attribute.valueEnd = close;
                    i = close + 1;
                } else {
                    i = std::min(stop, mText.size());
                }
                const size_t valueEnd =
                    attribute.valueEnd != std::string_view::npos ? attribute.valueEnd : i;
                attribute.value =
                    std::string(mText.substr(attribute.valueBegin, valueEnd - attribute.valueBegin));
            } else {
                i = j;
            }
        }
        tag.attributes.push_back(std::move(attribute));
    }
    mTags.push_back(std::move(tag));
}

bool TagScan::inMarkup(size_t offset) const {
    // The stretches are in the order of the text and do not overlap.
    const auto after = std::upper_bound(
        mMarkup.begin(), mMarkup.end(), offset,
        [](size_t at, const std::pair<size_t, size_t>& m) { return at <= m.first; });
    return after != mMarkup.begin() && offset < std::prev(after)->second;
}

bool TagScan::markupStartsAt(size_t offset) const {
    return std::binary_search(mMarkup.begin(), mMarkup.end(), std::make_pair(offset, size_t{0}),
                              [](const std::pair<size_t, size_t>& a,
                                 const std::pair<size_t, size_t>& b) { return a.first < b.first; });
}

std::vector<size_t> TagScan::openCounts(const std::vector<size_t>& offsets) const {
    std::vector<size_t> counts;
    std::vector<const std::string*> open;
    size_t next = 0;
    for (size_t offset : offsets) {
        for (; next < mTags.size() && mTags[next].begin < offset; ++next) {
            const ScannedTag& tag = mTags[next];
            if (!tag.closing) {
                if (!tag.selfClosing && tag.end != std::string_view::npos) {
                    open.push_back(&tag.name);
                }
                continue;
            }
            const auto found =
                std::find_if(open.rbegin(), open.rend(),
                             [&](const std::string* name) { return *name == tag.name; });
            if (found != open.rend()) {
                open.erase(std::prev(found.base()), open.end());
            }
        }
        counts.push_back(open.size());
    }
    return counts;
}

const ScannedTag* TagScan::tagStartingAt(size_t offset) const {
    const auto found =
        std::lower_bound(mTags.begin(), mTags.end(), offset,
                         [](const ScannedTag& tag, size_t at) { return tag.begin < at; });
    return found != mTags.end() && found->begin == offset ? &*found : nullptr;
}

const ScannedTag* TagScan::endTagOf(const ScannedTag& start) const {
    if (start.selfClosing || start.closing || start.end == std::string_view::npos) {
        return nullptr;
    }
    // The elements open inside `start`, `start` first, closed as
    // openElements() closes them.
    std::vector<const std::string*> open = {&start.name};
    for (size_t i = &start - mTags.data() + 1; i < mTags.size(); ++i) {
        const ScannedTag& tag = mTags[i];
        if (!tag.closing) {
            if (!tag.selfClosing && tag.end != std::string_view::npos) {
                open.push_back(&tag.name);
            }
            continue;
        }
        auto found = std::find_if(open.rbegin(), open.rend(),
                                  [&](const std::string* name) { return *name == tag.name; });
        if (found == open.rend()) {
            return nullptr;  // it closes an element around `start`
        }
        open.erase(std::prev(found.base()), open.end());
        if (open.empty()) {
            return &tag;
        }
    }
    return nullptr;
}

CursorContext TagScan::contextAt(size_t offset) const {
    CursorContext context;
    if (inMarkup(offset)) {
        return context;
    }
    // The tags that start before the place; the last may hold it.
    const size_t before =
        std::lower_bound(mTags.begin(), mTags.end(), offset,
                         [](const ScannedTag& tag, size_t at) { return tag.begin < at; }) -
        mTags.begin();
    const ScannedTag* last = before > 0 ? &mTags[before - 1] : nullptr;
    const bool inside =
        last != nullptr && (last->end == std::string_view::npos || offset < last->end);
    context.open = openElements(mTags, inside ? before - 1 : before);
    if (!inside) {
        context.where = CursorContext::Where::CONTENT;
        return context;
    }
    context.tag = last;
    const size_t nameBegin = last->begin + (last->closing ? 2 : 1);
    if (offset <= nameBegin + last->name.size()) {
        context.where = CursorContext::Where::ELEMENT_NAME;
        context.wordBegin = nameBegin;
        return context;
    }
    context.where = CursorContext::Where::ATTRIBUTE_NAME;
    context.wordBegin = offset;
    for (const ScannedAttribute& attribute : last->attributes) {
        if (attribute.valueBegin != std::string_view::npos && attribute.valueBegin <= offset &&
            (attribute.valueEnd == std::string_view::npos || offset <= attribute.valueEnd)) {
            context.where = CursorContext::Where::ATTRIBUTE_VALUE;
            context.attribute = &attribute;
            context.wordBegin = attribute.valueBegin;
            return context;
        }
        if (attribute.nameBegin <= offset && offset <= attribute.nameBegin + attribute.name.size()) {
            context.wordBegin = attribute.nameBegin;
        }
    }
    return context;
}

}  // namespace ovela::tune
