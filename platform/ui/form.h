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
class QTabWidget;

namespace ui
{

class ListView;

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

    // Connecting events. Each takes the control and the member that answers it: `onClick(button, &F::slot)`. The member
    // is the window's, or that of a part of it that lives as long as the window (`onClick(button, &panel, &P::slot)`).
    // One member for all elements of a control array is told the element's index behind it.

    using Handler = std::function<void()>;
    using RowHandler = std::function<void(int)>;

    template<class... Slot>
    void onClick(QAbstractButton *button, Slot... slot)
    {
        connect(button, &QAbstractButton::clicked, this, bound(slot...));
    }
    template<class... Slot>
    void onGotFocus(QWidget *control, Slot... slot)
    {
        gotFocus_[control] = bound(slot...);
    }
    template<class... Slot>
    void onLostFocus(QWidget *control, Slot... slot)
    {
        lostFocus_[control] = bound(slot...);
    }
    /// The text of a box, a combo or a label has changed, by the user or by the program.
    template<class... Slot>
    void onChange(QWidget *control, Slot... slot)
    {
        connectChange(control, bound(slot...));
    }
    /// A key of a control (Qt::Key_F1, Qt::Key_Delete, ...), or of the whole window for `this`. The key goes no
    /// further. Qt::Key_Return stands for both Enter keys.
    template<class... Slot>
    void onKey(QWidget *control, Qt::Key key, Slot... slot)
    {
        keys_[control].insert(key, bound(slot...));
    }
    template<class... Slot>
    void onDoubleClick(QWidget *control, Slot... slot)
    {
        doubleClick_[control] = bound(slot...);
    }
    /// Another page of a tab widget has come to the front, by the user or by the program. The member may take its
    /// index.
    template<class... Slot>
    void onTab(QTabWidget *tabs, Slot... slot)
    {
        connectTab(tabs, rowBound(slot...));
    }

    // The events of a list. The member may take the row (or column) that they are about.
    template<class... Slot>
    void onItemClick(ListView *list, Slot... slot)
    {
        connectList(list, ListEvent::Click, rowBound(slot...));
    }
    /// The member runs behind the list's own event, and may unload the window.
    template<class... Slot>
    void onItemDoubleClick(ListView *list, Slot... slot)
    {
        connectList(list, ListEvent::DoubleClick, rowBound(slot...));
    }
    template<class... Slot>
    void onColumnClick(ListView *list, Slot... slot)
    {
        connectList(list, ListEvent::Column, rowBound(slot...));
    }
    template<class... Slot>
    void onItemCheck(ListView *list, Slot... slot)
    {
        connectList(list, ListEvent::Check, rowBound(slot...));
    }
    /// Another row is selected, or none any more.
    template<class... Slot>
    void onSelection(ListView *list, Slot... slot)
    {
        connectSelection(list, bound(slot...));
    }

    /// A member as something that Qt may call: an exception of the program's own does not pass through Qt.
    template<class F>
    Handler bound(void (F::*slot)())
    {
        return bound(static_cast<F *>(this), slot);
    }
    template<class F>
    Handler bound(void (F::*slot)(int), int index)
    {
        return bound(static_cast<F *>(this), slot, index);
    }
    template<class R, class F>
    Handler bound(R *receiver, void (F::*slot)())
    {
        return [receiver, slot] { Application::run([=] { (receiver->*slot)(); }); };
    }
    template<class R, class F>
    Handler bound(R *receiver, void (F::*slot)(int), int index)
    {
        return [=] { Application::run([=] { (receiver->*slot)(index); }); };
    }

    /// Filters what goes into a control, behind the window's own filter, whether it is typed, pasted or dropped; a null
    /// character swallows the key.
    void filterKeys(QWidget *control, std::function<QChar(QChar)> filter);

    /// Changes a text that comes from elsewhere as a whole, before the filter sees its characters.
    void tidyPaste(QWidget *control, std::function<QString(const QString &)> tidy);

    /// Buttons that open a window which does not exist are disabled.
    void disableUnlessExists(const QString &form, std::initializer_list<QWidget *> controls);

signals:
    void unloaded();

protected:
    /// Esc unloads the window. Off unless asked for.
    void setEscapeUnloads(bool on) { escapeUnloads_ = on; }

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
    enum class ListEvent { Click, DoubleClick, Column, Check };

    template<class F>
    RowHandler rowBound(void (F::*slot)())
    {
        return rowBound(static_cast<F *>(this), slot);
    }
    template<class F>
    RowHandler rowBound(void (F::*slot)(int))
    {
        return rowBound(static_cast<F *>(this), slot);
    }
    template<class R, class F>
    RowHandler rowBound(R *receiver, void (F::*slot)())
    {
        return [handler = bound(receiver, slot)](int /*row*/) { handler(); };
    }
    template<class R, class F>
    RowHandler rowBound(R *receiver, void (F::*slot)(int))
    {
        return [=](int row) { Application::run([=] { (receiver->*slot)(row); }); };
    }

    void connectList(ListView *list, ListEvent event, const RowHandler &handler);
    void connectSelection(ListView *list, const Handler &handler);
    void connectTab(QTabWidget *tabs, const RowHandler &handler);
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
