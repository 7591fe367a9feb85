#include "platform/dao/collation.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

/// Weights of the first level. 0 is a mark that counts last of all.
constexpr int firstPunctuation = 0x40;
constexpr int firstDigit = 0x100;
constexpr int firstLetter = 0x200;
constexpr int firstOther = 0x1000;

/// Everything below the digits in its order: the blanks, the punctuation, the symbols.
constexpr QStringView lowOrder = u" \u00A0!\"#$%&()*,./:;?@[\\]^_`{|}~¡¦¨¯´¸¿…‚„‘’“”‹›–—ˆ˜•+±«<=>»×÷¢£¤¥€§©¬®™°¶·†‡‰";

/// One step of a text: what it weighs first, and by which accent it is told from its plain letter.
struct Weight {
    int primary = 0;
    int accent = 0;
};

int primaryOf(char32_t character)
{
    if (character == U'-' || character == U'\'' || character == 0xAD) {
        return 0;
    }
    if (character < 0x20) {
        return static_cast<int>(character) + 1;
    }
    if (character >= U'0' && character <= U'9') {
        return firstDigit + static_cast<int>(character - U'0');
    }
    if (character >= U'a' && character <= U'z') {
        return firstLetter + 4 * static_cast<int>(character - U'a');
    }
    const qsizetype low = character < 0x10000 ? lowOrder.indexOf(QChar(static_cast<char16_t>(character))) : -1;
    return low >= 0 ? firstPunctuation + static_cast<int>(low) : firstOther + static_cast<int>(character);
}

/// Acute, grave, circumflex, diaeresis, tilde, ring, cedilla, and the other marks behind them.
int accentOf(char16_t mark)
{
    static constexpr std::array<char16_t, 7> order = {0x301, 0x300, 0x302, 0x308, 0x303, 0x30A, 0x327};
    const auto *const found = std::find(order.begin(), order.end(), mark);
    return found != order.end() ? static_cast<int>(found - order.begin()) + 1 : 8 + mark;
}

/// Letters that are written as others: two letters in one sign, strokes and raised signs. They only tie with what they
/// stand for.
struct Substitute {
    char32_t letter;
    std::array<char, 2> letters;
};

constexpr int substituted = 9;

constexpr std::array<Substitute, 13> substitutes = {{{U'æ', {'a', 'e'}},
                                                     {U'œ', {'o', 'e'}},
                                                     {U'ß', {'s', 's'}},
                                                     {U'þ', {'t', 'h'}},
                                                     {U'ø', {'o', 0}},
                                                     {U'ð', {'d', 0}},
                                                     {U'đ', {'d', 0}},
                                                     {U'ł', {'l', 0}},
                                                     {U'ª', {'a', 0}},
                                                     {U'º', {'o', 0}},
                                                     {U'¹', {'1', 0}},
                                                     {U'²', {'2', 0}},
                                                     {U'³', {'3', 0}}}};

/// Reads a text step by step, marks that count last left out.
template<class Decoder>
class Walk
{
public:
    explicit Walk(Decoder decoder) : decoder_(decoder) {}

    bool next(Weight &weight)
    {
        if (pending_ != 0) {
            weight = {primaryOf(static_cast<unsigned char>(pending_)), substituted};
            pending_ = 0;
            return true;
        }
        char32_t character = 0;
        while (decoder_.next(character)) {
            weight = weigh(character);
            if (weight.primary != 0) {
                return true;
            }
        }
        return false;
    }

private:
    Weight weigh(char32_t character)
    {
        character = QChar::toCaseFolded(character);
        for (const Substitute &substitute : substitutes) {
            if (character == substitute.letter) {
                pending_ = substitute.letters[1];
                return {primaryOf(static_cast<unsigned char>(substitute.letters[0])), substituted};
            }
        }
        if (character < 0xC0 || QChar::decompositionTag(character) != QChar::Canonical) {
            return {primaryOf(character), 0};
        }
        const QString parts = QChar::decomposition(character);
        const bool letter = parts.size() > 1 && parts[0].isLetter();
        return letter ? Weight{primaryOf(parts[0].unicode()), accentOf(parts[1].unicode())}
                      : Weight{primaryOf(character), 0};
    }

    Decoder decoder_;
    char pending_ = 0;
};

class Utf16Decoder
{
public:
    explicit Utf16Decoder(QStringView text) : at_(text.utf16()), end_(text.utf16() + text.size()) {}

    bool next(char32_t &character)
    {
        if (at_ == end_) {
            return false;
        }
        character = *at_++;
        if (QChar::isHighSurrogate(character) && at_ != end_ && QChar::isLowSurrogate(*at_)) {
            character = QChar::surrogateToUcs4(static_cast<char16_t>(character), *at_++);
        }
        return true;
    }

private:
    const char16_t *at_;
    const char16_t *end_;
};

/// The places and kinds of the marks that count last, in the order in which two texts are told apart by them.
QList<int> lateMarks(QStringView text)
{
    QList<int> marks;
    int place = 0;
    for (const QChar character : text) {
        if (primaryOf(character.unicode()) == 0) {
            marks += {place, character.unicode()};
        } else {
            ++place;
        }
    }
    return marks;
}

QStringView withoutTrailingBlanks(QStringView text)
{
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

int sign(int difference)
{
    return (difference > 0) - (difference < 0);
}

int compareLateMarks(QStringView left, QStringView right)
{
    const QList<int> leftMarks = lateMarks(left);
    const QList<int> rightMarks = lateMarks(right);
    if (leftMarks == rightMarks) {
        return 0;
    }
    return leftMarks < rightMarks ? -1 : 1;
}

/// The weights of the 7-bit characters, which nearly all texts are made of.
const std::array<quint16, 128> &plainWeights()
{
    static const std::array<quint16, 128> weights = [] {
        std::array<quint16, 128> made{};
        for (char32_t character = 0; character < 128; ++character) {
            made[character] = static_cast<quint16>(primaryOf(QChar::toCaseFolded(character)));
        }
        return made;
    }();
    return weights;
}

constexpr int undecided = 2;

/// Compares byte by byte while both are plain. Undecided where an accent or a late mark has its word to say.
int comparePlain(QByteArrayView left, QByteArrayView right)
{
    const auto &weights = plainWeights();
    const qsizetype common = std::min(left.size(), right.size());
    for (qsizetype i = 0; i < common; ++i) {
        const auto leftByte = static_cast<unsigned char>(left[i]);
        const auto rightByte = static_cast<unsigned char>(right[i]);
        if ((leftByte | rightByte) >= 128) {
            return undecided;
        }
        const int leftWeight = weights[leftByte];
        const int rightWeight = weights[rightByte];
        if (leftWeight == 0 || rightWeight == 0) {
            return undecided;
        }
        if (leftWeight != rightWeight) {
            return leftWeight < rightWeight ? -1 : 1;
        }
    }
    const QByteArrayView rest = left.size() > right.size() ? left.sliced(common) : right.sliced(common);
    if (!rest.isEmpty() &&
        (static_cast<unsigned char>(rest[0]) >= 128 || weights[static_cast<unsigned char>(rest[0])] == 0)) {
        return undecided;
    }
    return sign(static_cast<int>(left.size() > common) - static_cast<int>(right.size() > common));
}

QByteArrayView withoutTrailingBlanks(QByteArrayView text)
{
    while (!text.isEmpty() && text.back() == ' ') {
        text.chop(1);
    }
    return text;
}

/// How many bytes both begin with, whole letters only. They decide nothing: neither their weights, nor their accents,
/// nor their late marks differ.
qsizetype commonLetters(QByteArrayView left, QByteArrayView right)
{
    const qsizetype shorter = std::min(left.size(), right.size());
    qsizetype common = std::mismatch(left.begin(), left.begin() + shorter, right.begin()).first - left.begin();
    const auto continues = [&common](QByteArrayView text) {
        return common < text.size() && (static_cast<unsigned char>(text[common]) & 0xC0) == 0x80;
    };
    while (common > 0 && (continues(left) || continues(right))) {
        --common;
    }
    return common;
}

} // namespace

int compareText(QStringView left, QStringView right)
{
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    Walk leftWalk{Utf16Decoder(left)};
    Walk rightWalk{Utf16Decoder(right)};
    int accents = 0;
    for (;;) {
        Weight leftWeight;
        Weight rightWeight;
        const bool leftHas = leftWalk.next(leftWeight);
        const bool rightHas = rightWalk.next(rightWeight);
        if (!leftHas || !rightHas) {
            if (leftHas != rightHas) {
                return leftHas ? 1 : -1;
            }
            break;
        }
        if (leftWeight.primary != rightWeight.primary) {
            return leftWeight.primary < rightWeight.primary ? -1 : 1;
        }
        accents = accents == 0 ? sign(leftWeight.accent - rightWeight.accent) : accents;
    }
    return accents != 0 ? accents : compareLateMarks(left, right);
}

int compareUtf8(QByteArrayView left, QByteArrayView right)
{
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    const qsizetype common = commonLetters(left, right);
    left = left.sliced(common);
    right = right.sliced(common);
    const int plain = comparePlain(left, right);
    return plain != undecided ? plain : compareText(QString::fromUtf8(left), QString::fromUtf8(right));
}

} // namespace dao
