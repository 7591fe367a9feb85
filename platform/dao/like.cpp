#include "platform/dao/like.h"

#include "platform/dao/collation.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

bool isPlain(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar character) { return u"*?#["_s.contains(character); });
}

} // namespace

LikePattern::LikePattern(QStringView pattern)
{
    if (pattern.size() >= 2 && pattern.startsWith(u'*') && pattern.endsWith(u'*') &&
        isPlain(pattern.sliced(1).chopped(1))) {
        contains_ = true;
        middle_ = pattern.sliced(1).chopped(1).toString().toCaseFolded();
        return;
    }
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar character = pattern[i];
        if (character == u'*') {
            steps_.push_back({Kind::AnyText, {}, false, {}});
        } else if (character == u'?') {
            steps_.push_back({Kind::AnyOne, {}, false, {}});
        } else if (character == u'#') {
            steps_.push_back({Kind::Digit, {}, false, {}});
        } else if (character == u'[') {
            i = addGroup(pattern, i + 1);
        } else {
            steps_.push_back({Kind::Character, character.toCaseFolded(), false, {}});
        }
    }
}

/// Returns the place of the closing bracket. "[]" stands for no character at all, "[!]" for the exclamation mark.
qsizetype LikePattern::addGroup(QStringView pattern, qsizetype from)
{
    const qsizetype end = pattern.indexOf(u']', from);
    if (end < 0) {
        broken_ = true;
        return pattern.size();
    }
    QStringView inside = pattern.sliced(from, end - from);
    Step step{Kind::Group, {}, inside.size() > 1 && inside.startsWith(u'!'), {}};
    inside = inside.sliced(step.negated ? 1 : 0);
    for (qsizetype i = 0; i < inside.size(); ++i) {
        const bool range = i + 2 < inside.size() && inside[i + 1] == u'-';
        step.ranges.push_back({inside[i], range ? inside[i + 2] : inside[i]});
        i += range ? 2 : 0;
    }
    if (!step.ranges.empty()) {
        steps_.push_back(std::move(step));
    }
    return end;
}

bool LikePattern::inGroup(const Step &step, QChar character)
{
    return std::any_of(step.ranges.begin(), step.ranges.end(), [character](const Range &range) {
        if (range.first == range.last) {
            return range.first.toCaseFolded() == character.toCaseFolded();
        }
        const QStringView text(&character, 1);
        return compareText(QStringView(&range.first, 1), text) <= 0 &&
               compareText(text, QStringView(&range.last, 1)) <= 0;
    });
}

bool LikePattern::accepts(const Step &step, QChar character)
{
    switch (step.kind) {
    case Kind::Character:
        return step.character == character.toCaseFolded();
    case Kind::Digit:
        return character >= u'0' && character <= u'9';
    case Kind::Group:
        return inGroup(step, character) != step.negated;
    case Kind::AnyOne:
    case Kind::AnyText:
        break;
    }
    return true;
}

bool LikePattern::matches(QStringView text) const
{
    if (broken_) {
        return false;
    }
    if (contains_) {
        return text.toString().toCaseFolded().contains(middle_);
    }
    return matchesSteps(text.toString());
}

/// Goes back to the last star only: an earlier one can't find what a later one misses.
bool LikePattern::matchesSteps(const QString &text) const
{
    size_t step = 0;
    qsizetype at = 0;
    size_t starStep = steps_.size();
    qsizetype starAt = 0;
    while (at < text.size()) {
        if (step < steps_.size() && steps_[step].kind == Kind::AnyText) {
            starStep = step++;
            starAt = at;
        } else if (step < steps_.size() && accepts(steps_[step], text[at])) {
            ++step;
            ++at;
        } else if (starStep < steps_.size()) {
            step = starStep + 1;
            at = ++starAt;
        } else {
            return false;
        }
    }
    return std::all_of(steps_.begin() + static_cast<std::ptrdiff_t>(step), steps_.end(),
                       [](const Step &rest) { return rest.kind == Kind::AnyText; });
}

} // namespace dao
