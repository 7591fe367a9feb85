#pragma once

#include "platform/ui/application.h"
#include "platform/ui/forms.h"

#include <QAbstractButton>
#include <QHash>
#include <QWidget>

#include <functional>

class QContextMenuEvent;
class QDropEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

namespace ui
{

/// The base of every window. It filters keys (Enter goes on as Tab, typed letters become capitals), tells a window when
/// the focus enters and leaves a control, routes F1, F2 and Esc, and unloads on closing. Events are connected in one
/// visible place, the window's constructor, to members named after the control: `btnIncluir_Click`.
///
/// Leaving a control: told when the focus goes to another control of the program, before the click that moved it;
/// not when another program comes to the front, a menu pops up or the window closes. While such an event runs, no other
/// is told. If it showed a box or moved the focus itself, the click that caused it is lost. A text that is selected on
/// entering stays selected under the click that entered.
class Form : public QWidget
{
    Q_OBJECT

public:
    explicit Form(const QString &name);
    ~Form() override;

    /// Runs once, when the window is loaded and before it is shown.
    virtual void Form_Load() {}

    /// Closes the window and forgets it; the object goes with the next turn of the event loop.
    void Unload();
    bool unloading() const { return unloading_; }

    /// The outermost event loop that the window has worked in: the one that may delete it.
    int loopLevel() const { return loopLevel_; }

    /// The control that a widget is part of: the combo of its line edit, the list of its viewport; the widget itself
    /// otherwise.
    QWidget *controlOf(QWidget *widget) const;

signals:
    void unloaded();

protected:
    using Handler = std::function<void()>;

    // Connecting events. Each takes the control and a member of the window.
    template<class F>
    void onClick(QAbstractButton *button, void (F::*slot)())
    {
        connect(button, &QAbstractButton::clicked, this, bound(slot));
    }
    template<class F>
    void onGotFocus(QWidget *control, void (F::*slot)())
    {
        gotFocus_[control] = bound(slot);
    }
    template<class F>
    void onLostFocus(QWidget *control, void (F::*slot)())
    {
        lostFocus_[control] = bound(slot);
    }
    /// The text of a box, a combo or a label has changed, by the user or by the program.
    template<class F>
    void onChange(QWidget *control, void (F::*slot)())
    {
        connectChange(control, bound(slot));
    }
    /// A key of a control (Qt::Key_F1, Qt::Key_Delete, ...), or of the whole window for `this`. The key goes no
    /// further. Qt::Key_Return stands for both Enter keys.
    template<class F>
    void onKey(QWidget *control, Qt::Key key, void (F::*slot)())
    {
        keys_[control].insert(key, bound(slot));
    }
    template<class F>
    void onDoubleClick(QWidget *control, void (F::*slot)())
    {
        doubleClick_[control] = bound(slot);
    }
    template<class F>
    Handler bound(void (F::*slot)())
    {
        return [this, slot] { Application::run([this, slot] { (static_cast<F *>(this)->*slot)(); }); };
    }

    // The same for the elements of a control array: one member for all, told the element's index.
    template<class F>
    void onClick(QAbstractButton *button, void (F::*slot)(int), int index)
    {
        connect(button, &QAbstractButton::clicked, this, bound(slot, index));
    }
    template<class F>
    void onGotFocus(QWidget *control, void (F::*slot)(int), int index)
    {
        gotFocus_[control] = bound(slot, index);
    }
    template<class F>
    void onLostFocus(QWidget *control, void (F::*slot)(int), int index)
    {
        lostFocus_[control] = bound(slot, index);
    }
    template<class F>
    void onChange(QWidget *control, void (F::*slot)(int), int index)
    {
        connectChange(control, bound(slot, index));
    }
    template<class F>
    void onKey(QWidget *control, Qt::Key key, void (F::*slot)(int), int index)
    {
        keys_[control].insert(key, bound(slot, index));
    }
    template<class F>
    Handler bound(void (F::*slot)(int), int index)
    {
        return [this, slot, index] { Application::run([=, this] { (static_cast<F *>(this)->*slot)(index); }); };
    }

    /// Filters what goes into a control, behind the window's own filter, whether it is typed, pasted or dropped; a null
    /// character swallows the key.
    void filterKeys(QWidget *control, std::function<QChar(QChar)> filter);

    /// Changes a text that comes from elsewhere as a whole, before the filter sees its characters.
    void tidyPaste(QWidget *control, std::function<QString(const QString &)> tidy);

    /// Esc unloads the window. Off unless asked for.
    void setEscapeUnloads(bool on) { escapeUnloads_ = on; }

    /// Buttons that open a window which does not exist are disabled.
    void disableUnlessExists(const QString &form, std::initializer_list<QWidget *> controls);

    bool eventFilter(QObject *object, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent *event) override;

private:
    friend class Forms;
    friend class FocusTracker;
    friend void CentraForm(Form &form, bool onScreen);

    enum class Centre { No, OnScreen, InArea };

    void tellGotFocus(QWidget *control);
    void tellLostFocus(QWidget *control);
    bool keyPressed(QWidget *control, QKeyEvent *event);
    bool enterPressed(QWidget *control, const QKeyEvent *event);
    bool typed(QWidget *control, QWidget *widget, QKeyEvent *event);
    bool committed(QWidget *control, QWidget *widget, QInputMethodEvent *event);
    bool userActs(QWidget *control, QWidget *widget, QEvent *event);
    bool doubleClicked(QWidget *control);
    bool shortcutActs(QWidget *widget);
    static bool isCommand(const QKeyEvent *event);
    bool handles(QWidget *control, const QKeyEvent *event) const;
    Handler keyHandler(QWidget *control, const QKeyEvent *event) const;
    bool broughtByMouse(QWidget *control, QWidget *widget, QEvent *event);
    bool dropped(QWidget *control, QWidget *widget, QDropEvent *event);
    bool middleClicked(QWidget *control, QWidget *widget, QMouseEvent *event);
    bool menuAsked(QWidget *control, QWidget *widget, QContextMenuEvent *event);
    void paste(QWidget *control, QWidget *widget, const QString &text);
    QString filtered(QWidget *control, const QString &text) const;
    QString accepted(QWidget *control, QWidget *widget, const QString &text) const;
    void replay(QWidget *widget, QEvent &event);
    void connectChange(QWidget *control, const Handler &handler);
    void watch(QObject *object);
    void prepare(QWidget *widget);

    QHash<QWidget *, Handler> gotFocus_;
    QHash<QWidget *, Handler> lostFocus_;
    QHash<QWidget *, Handler> doubleClick_;
    QHash<QWidget *, QHash<int, Handler>> keys_;
    QHash<QWidget *, std::function<QChar(QChar)>> filters_;
    QHash<QWidget *, std::function<QString(const QString &)>> pastes_;
    Centre centre_ = Centre::No;
    int loopLevel_;
    bool escapeUnloads_ = false;
    bool replaying_ = false;
    bool unloading_ = false;
};

/// `CentraForm`: centres on the screen, or inside the main window's area.
void CentraForm(Form &form, bool onScreen);

/// True while what the user types, pastes or drops goes into that control; false where he deletes, and where the
/// program writes.
bool userInserts(const QWidget *control);

/// Tells the control with the focus that it is left, ahead of a window that a key in it opens.
void leaveField();

/// Reads and writes what the platform calls a control's Text or Caption.
QString textOf(const QWidget *control);
void setTextOf(QWidget *control, const QString &text);

/// The control's `Tag`: a text of any use.
QString tagOf(const QWidget *control);
void setTagOf(QWidget *control, const QString &tag);

} // namespace ui
