#pragma once

class QEvent;
class QWidget;

namespace ui
{

/// For the length of its life nothing that the user does reaches a window; whether he pressed Esc is noted. A box that
/// comes up meanwhile is answered as ever.
class UserHeldBack
{
public:
    UserHeldBack();
    ~UserHeldBack();
    UserHeldBack(const UserHeldBack &) = delete;
    UserHeldBack &operator=(const UserHeldBack &) = delete;

    bool escape() const { return escape_; }

    /// Asked for every event of the program: true for one that is to go no further.
    static bool takes(QEvent *event);

private:
    bool escape_ = false;
    QWidget *modal_; ///< the window that the work was started from, where that is modal
    UserHeldBack *outer_;
};

} // namespace ui
