#pragma once

#include <QString>

#include <initializer_list>
#include <vector>

namespace ui
{

/// Many texts, one behind the other in one string: they take less memory than strings of their own.
class TextStore
{
public:
    /// Where a text stands.
    struct Piece {
        static constexpr quint32 notSet = ~quint32(0);

        quint32 start = notSet;
        quint32 length = 0;
    };
    using Pieces = std::vector<Piece>;

    Piece add(QStringView text);
    QStringView at(Piece piece) const;
    void replace(Piece &piece, QStringView text);

    /// True when the texts that were replaced take more room than the others.
    bool isWasteful() const;

    /// Clears away what was replaced; `kept` are all pieces that are in use.
    void compact(std::initializer_list<Pieces *> kept);

    qsizetype bytes() const { return texts_.capacity() * qsizetype(sizeof(QChar)); }

private:
    QString texts_;
    qsizetype dead_ = 0; // characters that no piece shows any more
};

} // namespace ui
