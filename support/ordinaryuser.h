#pragma once

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

namespace support
{

/// As long as it lives the test is a user without privileges: the superuser may write everywhere. Does nothing where
/// the test is run by an ordinary user.
class OrdinaryUser
{
public:
    OrdinaryUser() { become(nobody); }
    ~OrdinaryUser() { become(superuser); }

private:
    static constexpr unsigned superuser = 0;
    static constexpr unsigned nobody = 65534;

    /// The third one stays, for the way back.
    void become([[maybe_unused]] unsigned user) const
    {
#ifdef Q_OS_LINUX
        if (changes_ && ::setresuid(user, user, superuser) != 0) {
            qFatal("no change of the user");
        }
#endif
    }

#ifdef Q_OS_LINUX
    bool changes_ = ::getuid() == superuser;
#endif
    Q_DISABLE_COPY_MOVE(OrdinaryUser)
};

} // namespace support
