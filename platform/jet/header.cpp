#include "platform/jet/header.h"

#include "platform/jet/page.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cmath>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace jet
{

namespace
{

constexpr int nameAt = 0x04;
constexpr int versionAt = 0x14;
constexpr int maskedAt = 0x18;
constexpr int maskedSize = 128;
constexpr int pageKeyAt = 0x3E;
constexpr int passwordAt = 0x42;
constexpr int passwordSize = 40;
constexpr int createdAt = 0x72;
constexpr uchar versionJet3 = 0;
constexpr uchar versionJet4 = 1;
constexpr std::array<uchar, 4> maskKey{0xC7, 0xDA, 0x39, 0x6B};

// The header, then a page for each system table that it tells of.
constexpr qint64 fewestPages = 3;

// RC4, which undoes itself.
void unmask(Page &page)
{
    std::array<uchar, 256> state{};
    std::iota(state.begin(), state.end(), uchar{0});
    for (std::size_t i = 0, j = 0; i < state.size(); ++i) {
        j = (j + state[i] + maskKey[i % maskKey.size()]) % state.size();
        std::swap(state[i], state[j]);
    }
    for (std::size_t n = 0, i = 0, j = 0; n < maskedSize; ++n) {
        i = (i + 1) % state.size();
        j = (j + state[i]) % state.size();
        std::swap(state[i], state[j]);
        page[maskedAt + n] ^= state[(state[i] + state[j]) % state.size()];
    }
}

// A password is hidden behind the day on which the file was made; an empty one is nothing but that day.
bool hasPassword(const Page &page)
{
    const auto created = numberAt<double>(page, createdAt);
    const bool isDay = std::isfinite(created) && std::abs(created) < 1e9;
    const quint32 day = isDay ? static_cast<quint32>(static_cast<qint32>(created)) : 0;
    for (int i = 0; i < passwordSize; i += 4) {
        if ((numberAt<quint32>(page, passwordAt + i) ^ day) != 0) {
            return true;
        }
    }
    return false;
}

Kind kindOfVersion(uchar version)
{
    if (version == versionJet4) {
        return Kind::Jet4;
    }
    return version == versionJet3 ? Kind::Jet3 : Kind::Later;
}

// By what stands unmasked at the start of every version.
Kind kindOfName(QByteArrayView start)
{
    if (start.size() <= versionAt || !start.startsWith(QByteArrayView("\0\1\0\0", nameAt))) {
        return Kind::None;
    }
    const QByteArrayView name = start.sliced(nameAt, versionAt - nameAt);
    if (name == QByteArrayView("Standard ACE DB\0", name.size())) {
        return Kind::Later;
    }
    if (name != QByteArrayView("Standard Jet DB\0", name.size())) {
        return Kind::None;
    }
    return kindOfVersion(static_cast<uchar>(start[versionAt]));
}

} // namespace

Kind examine(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return Kind::Unreadable;
    }
    const QByteArray start = file.read(pageSize);
    if (file.error() != QFileDevice::NoError) {
        return Kind::Unreadable;
    }
    const Kind kind = kindOfName(start);
    if (kind != Kind::Jet4) {
        return kind;
    }
    if (start.size() < pageSize) {
        return Kind::Truncated;
    }
    Page page;
    std::copy(start.cbegin(), start.cend(), page.begin());
    unmask(page);
    if (numberAt<quint32>(page, pageKeyAt) != 0) {
        return Kind::Encrypted;
    }
    if (hasPassword(page)) {
        return Kind::Password;
    }
    return file.size() % pageSize != 0 || file.size() < fewestPages * pageSize ? Kind::Truncated : Kind::Jet4;
}

} // namespace jet
