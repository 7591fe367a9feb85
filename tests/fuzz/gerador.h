#pragma once

#include <QRandomGenerator>
#include <QString>

#include <span>

namespace fuzz
{

/// Makes the inputs of a fuzz test: pieces that have meaning for the code under test, strung together at random
/// with stray characters between them. The same seed gives the same inputs on every machine.
class Gerador
{
public:
    explicit Gerador(quint32 seed) : random_(seed) {}

    /// A number from 0 to `limit` - 1.
    int below(int limit) { return random_.bounded(limit); }
    bool oneIn(int chances) { return below(chances) == 0; }

    /// Any finite double, tiny and huge ones as likely as amounts.
    double number();

    /// Up to `most` pieces, one in eight of them a character of its own.
    QString text(std::span<const QStringView> pieces, int most);

private:
    QChar stray();

    QRandomGenerator random_;
};

inline double Gerador::number()
{
    const auto fraction = (random_.generateDouble() - 0.5) * 2;
    const auto amount = fraction * 1e6;
    if (oneIn(2)) {
        return amount;
    }
    double power = 1;
    for (int steps = below(300); steps > 0; --steps) {
        power *= 10;
    }
    return oneIn(2) ? fraction * power : fraction / power;
}

inline QChar Gerador::stray()
{
    const auto limit = oneIn(4) ? 0x10000 : 0x180;
    return QChar(static_cast<char16_t>(below(limit)));
}

inline QString Gerador::text(std::span<const QStringView> pieces, int most)
{
    QString result;
    for (int count = below(most + 1); count > 0; --count) {
        if (oneIn(8)) {
            result += stray();
        } else {
            result += pieces[static_cast<std::size_t>(below(static_cast<int>(pieces.size())))];
        }
    }
    return result;
}

} // namespace fuzz
