#include "platform/ui/textstore.h"

#include <utility>

namespace ui
{

namespace
{

/// Below this many characters of replaced texts the store is left as it is.
constexpr qsizetype leastDead = 100000;

} // namespace

TextStore::Piece TextStore::add(QStringView text)
{
    const Piece piece{quint32(texts_.size()), quint32(text.size())};
    texts_.append(text);
    return piece;
}

QStringView TextStore::at(Piece piece) const
{
    return piece.length == 0 ? QStringView() : QStringView(texts_).sliced(piece.start, piece.length);
}

void TextStore::replace(Piece &piece, QStringView text)
{
    dead_ += piece.length;
    piece = add(text);
}

bool TextStore::isWasteful() const
{
    return dead_ > leastDead && dead_ > texts_.size() / 2;
}

void TextStore::compact(std::initializer_list<Pieces *> kept)
{
    const TextStore old = std::exchange(*this, {});
    texts_.reserve(old.texts_.size() - old.dead_);
    for (auto *pieces : kept) {
        for (auto &piece : *pieces) {
            piece = piece.start == Piece::notSet ? piece : add(old.at(piece));
        }
    }
}

} // namespace ui
