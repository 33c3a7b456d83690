#ifndef OVELA_SUPPRESSIONS_H
#define OVELA_SUPPRESSIONS_H

#include <libxml/tree.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "SourcePositions.h"

// The comments by which a tuning team accepts findings; not part of the
// library's interface. To the reader they are comments like any other.
namespace ovela {

// "<!-- ovela-tune disable RULE[,RULE...] -->" silences those rules for the
// element that follows the comment and everything inside it;
// "<!-- ovela-tune disable-file RULE[,RULE...] -->" for the whole file. Any
// text after the list says why, for the reader of the file.
struct Suppression {
    bool wholeFile = false;
    std::vector<std::string> rules;
    Place comment;
    // The element after the comment, from its start tag to the end of its end
    // tag; line 0 when no element follows.
    Place scope;

    // Whether a finding of `rule` at `at` falls where this silences it.
    bool silences(std::string_view rule, const Place& at) const;
};

// The suppression that a comment's text asks for; nothing for any other
// comment.
std::optional<Suppression> suppressionIn(std::string_view comment);

// Collects the suppressions of a document while it is parsed, each with the
// element it covers.
class SuppressionScopes {
  public:
    void comment(std::string_view text, const Place& place);
    void startTag(const xmlNode* element, const Place& place);
    // `line` and `column` stand just past the element's end.
    void endTag(const xmlNode* element, long line, long column);
    // Every suppression met, in the order of the file.
    std::vector<Suppression> take();

  private:
    struct Open {
        const xmlNode* element;
        std::vector<Suppression> suppressions;
    };
    std::vector<Suppression> mDone;
    std::vector<Suppression> mWaiting;  // for the next start tag
    std::vector<Open> mOpen;
};

}  // namespace ovela

#endif  // OVELA_SUPPRESSIONS_H
