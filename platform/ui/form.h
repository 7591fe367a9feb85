#pragma once

#include "platform/ui/forms.h"

#include <QAbstractButton>
#include <QHash>
#include <QPointer>
#include <QWidget>

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace ui {

/// The base of every window. It filters keys (Enter goes on as Tab, typed letters become capitals), tells a window when
/// the focus enters and leaves a control, routes F1, F2 and Esc, and unloads on closing. Events are connected in one
/// visible place, the window's constructor, to members named after the control: `btnIncluir_Click`.
///
/// Leaving a control: told when the focus goes to another control of the program, before the click that moved it;
/// not when another program comes to the front, a menu pops up or the window closes. While such an event runs, no other
/// is told. If it showed a box or moved the focus itself, the click that caused it is lost.
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

    /// The name of the control as given, also for a child of a compound control; "" for none.
    QWidget *controlOf(QWidget *widget) const;

protected:
    using Handler = std::function<void()>;

    // Connecting events. Each takes the control and a member of the window.
    template<class F>
    void onClick(QAbstractButton *button, void (F::*slot)())
    {
        connect(button, &QAbstractButton::clicked, this, [this, slot] { (static_cast<F *>(this)->*slot)(); });
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
    /// A key of a control (Qt::Key_F1, Qt::Key_Delete, ...). The key goes no further.
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
        return [this, slot] { (static_cast<F *>(this)->*slot)(); };
    }

    /// Filters what is typed into a control, behind the window's own filter; a null character swallows the key.
    void filterKeys(QWidget *control, std::function<QChar(QChar)> filter);

    /// Esc unloads the window. Off unless asked for.
    void setEscapeUnloads(bool on) { escapeUnloads_ = on; }

    /// Buttons that open a window which does not exist are disabled.
    void disableUnlessExists(const QString &form, std::initializer_list<QWidget *> controls);

    bool eventFilter(QObject *object, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    friend class Forms;

    void focusMoved(QWidget *old, QWidget *now);
    bool keyPressed(QWidget *control, class QKeyEvent *event);
    void connectChange(QWidget *control, Handler handler);
    void watch(QWidget *widget);

    QHash<QWidget *, Handler> gotFocus_;
    QHash<QWidget *, Handler> lostFocus_;
    QHash<QWidget *, Handler> doubleClick_;
    QHash<QWidget *, QHash<int, Handler>> keys_;
    QHash<QWidget *, std::function<QChar(QChar)>> filters_;
    QPointer<QWidget> current_;
    QPointer<QWidget> lostClick_;
    Qt::FocusReason reason_ = Qt::OtherFocusReason;
    bool inFocusEvent_ = false;
    bool escapeUnloads_ = false;
    bool unloading_ = false;
};

/// `CentraForm`: centres on the screen, or inside the main window's area.
void CentraForm(Form &form, bool onScreen);

/// Reads and writes what the platform calls a control's Text or Caption.
QString textOf(const QWidget *control);
void setTextOf(QWidget *control, const QString &text);

/// The control's `Tag`: a text of any use.
QString tagOf(const QWidget *control);
void setTagOf(QWidget *control, const QString &tag);

} // namespace ui
