#pragma once

#include <QString>

#include <vector>

namespace dao
{

/// A pattern of the operator LIKE: * any text, ? one character, # one digit, [a-c] and [!a-c] one of, or none of, a
/// group. All else stands for itself. Case does not count, accents do. A group that never ends matches nothing.
class LikePattern
{
public:
    explicit LikePattern(QStringView pattern);

    bool matches(QStringView text) const;

private:
    enum class Kind { Character, AnyOne, AnyText, Digit, Group };

    struct Range {
        QChar first;
        QChar last;
    };

    struct Step {
        Kind kind = Kind::Character;
        QChar character;
        bool negated = false;
        std::vector<Range> ranges;
    };

    qsizetype addGroup(QStringView pattern, qsizetype from);
    static bool inGroup(const Step &step, QChar character);
    static bool accepts(const Step &step, QChar character);
    bool matchesSteps(const QString &text) const;

    std::vector<Step> steps_;
    QString middle_;        ///< the text of a pattern that is nothing but *text*
    bool contains_ = false; ///< the pattern is *text*
    bool broken_ = false;
};

} // namespace dao
