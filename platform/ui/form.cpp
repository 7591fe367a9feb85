#include "platform/ui/form.h"

#include "platform/ui/controls.h"
#include "platform/ui/focus.h"
#include "platform/ui/help.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"
#include "platform/ui/tabstops.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QThread>
#include <QToolButton>

namespace ui
{

using namespace Qt::StringLiterals;

namespace
{

bool isCompound(const QWidget *widget)
{
    const bool frame = qobject_cast<const QScrollArea *>(widget) || qobject_cast<const QMdiArea *>(widget);
    return !frame && (qobject_cast<const QComboBox *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget) ||
                      qobject_cast<const QAbstractScrollArea *>(widget));
}

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isPushed(const QWidget *control)
{
    return qobject_cast<const QPushButton *>(control) || qobject_cast<const QToolButton *>(control);
}

bool keepsEnter(const QWidget *control)
{
    const auto *list = qobject_cast<const ListView *>(control);
    return list ? list->usesEnter() : qobject_cast<const QAbstractItemView *>(control) != nullptr;
}

/// What the user does to a window; one that is closing takes no more of it.
bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}

/// A click on these would act while the focus stays in the field; the field is to be left first.
bool actsWithoutFocus(const QWidget *widget)
{
    return qobject_cast<const QTabBar *>(widget) ||
           (qobject_cast<const QToolButton *>(widget) && widget->focusPolicy() == Qt::TabFocus);
}

/// Qt would offer and insert list entries on its own; the program's combos complete by their own rule or not at all.
void plainCombo(QComboBox *combo)
{
    if (combo && combo->isEditable()) {
        combo->setInsertPolicy(QComboBox::NoInsert);
        if (combo->completer()) {
            combo->setCompleter(nullptr);
        }
    }
}

/// The button that a mnemonic is for: the one that it stands on, or the one beside the label that it stands on.
QAbstractButton *buttonOf(QWidget *widget)
{
    const auto *label = qobject_cast<QLabel *>(widget);
    return qobject_cast<QAbstractButton *>(label ? label->buddy() : widget);
}

/// Qt lets a button go a moment after its mnemonic: into whatever has come up meanwhile, the button's own question too.
bool pressAtOnce(QWidget *widget, const QShortcutEvent &event)
{
    auto *button = buttonOf(widget);
    if (!button || event.isAmbiguous()) {
        return false;
    }
    button->click();
    return true;
}

} // namespace

Form::Form(const QString &name) : loopLevel_(QThread::currentThread()->loopLevel())
{
    setObjectName(name);
    FocusTracker::instance();
    watch(this);
}

Form::~Form()
{
    unloading_ = true;
    FocusTracker::instance().forget(this);
    Forms::instance().forget(this);
}

void Form::Unload()
{
    if (unloading_) {
        return;
    }
    unloading_ = true;
    FocusTracker::instance().forget(this);
    Forms::instance().forget(this);
    emit unloaded();
    auto *frame = qobject_cast<QMdiSubWindow *>(parentWidget());
    auto *window = frame ? static_cast<QWidget *>(frame) : this;
    window->close();
    Application::discard(window, loopLevel_);
}

void Form::closeEvent(QCloseEvent *event)
{
    event->accept();
    Unload();
}

QWidget *Form::controlOf(QWidget *widget) const
{
    auto *control = widget;
    for (; widget && widget != this; widget = widget->parentWidget()) {
        if (isCompound(widget)) {
            control = widget;
        }
    }
    return control;
}

void Form::filterKeys(QWidget *control, std::function<QChar(QChar)> filter)
{
    filters_[control] = std::move(filter);
}

void Form::tidyPaste(QWidget *control, std::function<QString(const QString &)> tidy)
{
    pastes_[control] = std::move(tidy);
}

void Form::disableUnlessExists(const QString &form, std::initializer_list<QWidget *> controls)
{
    for (auto *control : controls) {
        if (!Forms::instance().exists(form)) {
            enableIf(false, control, u"Esta função ainda não está disponível"_s);
        }
    }
}

void Form::tellGotFocus(QWidget *control)
{
    if (const auto handler = gotFocus_.value(control); handler && !unloading_) {
        handler();
    }
}

void Form::tellLostFocus(QWidget *control)
{
    if (const auto handler = lostFocus_.value(control); handler && !unloading_) {
        handler();
    }
}

/// Controls that come later (a tab page, the list of a combo) are seen as children added to what is watched already.
void Form::watch(QObject *object)
{
    object->installEventFilter(this);
    for (auto *child : object->children()) {
        if (child->isWidgetType() && !qobject_cast<Form *>(child)) {
            watch(child);
        }
    }
}

bool Form::eventFilter(QObject *object, QEvent *event)
{
    auto *widget = static_cast<QWidget *>(object);
    if (unloading_) {
        // The frame would be deleted with the next turn of whatever event loop runs: it goes when the window goes.
        if (event->type() == QEvent::Hide) {
            widget->setAttribute(Qt::WA_DeleteOnClose, false);
        }
        return isInput(event->type());
    }
    if (replaying_ || formOf(widget) != this) {
        return false;
    }
    auto *control = controlOf(widget);
    if (broughtByMouse(control, widget, event)) {
        return true;
    }
    switch (event->type()) {
    case QEvent::ChildAdded:
        if (auto *child = static_cast<QChildEvent *>(event)->child(); child->isWidgetType()) {
            watch(child);
        }
        return false;
    case QEvent::Polish:
        // A list watches its viewport itself, and the last watcher is asked first.
        widget->installEventFilter(this);
        prepare(widget);
        return false;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        FocusTracker::instance().setReason(static_cast<QFocusEvent *>(event)->reason());
        return false;
    case QEvent::ShortcutOverride:
        if (handles(control, static_cast<QKeyEvent *>(event))) {
            event->accept();
            return true;
        }
        return false;
    default:
        return isInput(event->type()) && userActs(control, widget, event);
    }
}

/// True where the event goes no further: what it did to the focus comes first, and may have shown a box or closed this
/// window.
bool Form::userActs(QWidget *control, QWidget *widget, QEvent *event)
{
    auto &tracker = FocusTracker::instance();
    loopLevel_ = std::min(loopLevel_, QThread::currentThread()->loopLevel());
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        tracker.touched(control);
        return !tracker.settleForClick() || unloading_;
    case QEvent::MouseButtonRelease:
        return tracker.swallows();
    case QEvent::MouseButtonDblClick:
        return tracker.swallows() || !tracker.settleForClick() || unloading_ || doubleClicked(control);
    case QEvent::Shortcut:
        return !shortcutActs(widget) || pressAtOnce(widget, *static_cast<QShortcutEvent *>(event));
    case QEvent::InputMethod:
        return committed(control, widget, static_cast<QInputMethodEvent *>(event));
    case QEvent::KeyPress:
        // The list of an open combo, a calendar: their keys are their own.
        if (widget->window() != window()) {
            return false;
        }
        tracker.touched(control);
        return !tracker.settle() || keyPressed(control, static_cast<QKeyEvent *>(event)) ||
               typed(control, widget, static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

void Form::prepare(QWidget *widget)
{
    plainCombo(qobject_cast<QComboBox *>(widget));
    if (qobject_cast<QScrollArea *>(widget)) {
        widget->setFocusPolicy(Qt::NoFocus); // what is in it takes the focus, and scrolls it
    }
    if (controlOf(widget) == widget && actsWithoutFocus(widget)) {
        widget->setFocusPolicy(Qt::StrongFocus);
    }
}

bool Form::doubleClicked(QWidget *control)
{
    const auto handler = doubleClick_.value(control);
    if (!handler) {
        return false;
    }
    handler();
    return true;
}

/// A button that its mnemonic presses takes the focus first, as a click does; else the field would be left behind it.
bool Form::shortcutActs(QWidget *widget)
{
    auto *button = buttonOf(widget);
    if (button && (button->focusPolicy() & Qt::ClickFocus) != 0) {
        button->setFocus(Qt::ShortcutFocusReason);
        return FocusTracker::instance().settle() && button->hasFocus();
    }
    return true;
}

/// Ctrl or Alt make a command of a key; both together are AltGr, which types.
bool Form::isCommand(const QKeyEvent *event)
{
    const auto modifiers = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return modifiers && modifiers != (Qt::ControlModifier | Qt::AltModifier);
}

Form::Handler Form::keyHandler(QWidget *control, const QKeyEvent *event) const
{
    if (isCommand(event)) {
        return {};
    }
    const int key = isEnter(event->key()) ? int(Qt::Key_Return) : event->key();
    const auto handler = keys_.value(control).value(key);
    return handler ? handler : keys_.value(const_cast<Form *>(this)).value(key);
}

bool Form::handles(QWidget *control, const QKeyEvent *event) const
{
    return keyHandler(control, event) != nullptr;
}

bool Form::keyPressed(QWidget *control, QKeyEvent *event)
{
    if (const auto handler = keyHandler(control, event)) {
        handler();
        return true;
    }
    if (isEnter(event->key())) {
        return enterPressed(control, event);
    }
    if (event->key() == Qt::Key_Escape && escapeUnloads_) {
        Unload();
        return true;
    }
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        askHelp(objectName());
        return true;
    }
    return false;
}

bool Form::enterPressed(QWidget *control, const QKeyEvent *event)
{
    if (keepsEnter(control)) {
        return false;
    }
    if (isPushed(control)) {
        if (!event->isAutoRepeat()) {
            static_cast<QAbstractButton *>(control)->click();
        }
        return true;
    }
    focusNextPrevChild(!event->modifiers().testFlag(Qt::ShiftModifier));
    return true;
}

/// Qt's own walk gets lost where a tab stop takes the focus for the frame around it: it goes on from the place of that
/// one and never meets what stands behind the frame.
bool Form::focusNextPrevChild(bool next)
{
    auto *stop = nextStop(*this, next);
    if (!stop) {
        return false;
    }
    // Qt draws the frame of the focus only where it came by Tab; the next Enter presses what came by Enter.
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void Form::connectChange(QWidget *control, const Handler &handler)
{
    if (auto *edit = qobject_cast<QLineEdit *>(control)) {
        connect(edit, &QLineEdit::textChanged, this, handler);
    } else if (auto *plain = qobject_cast<QPlainTextEdit *>(control)) {
        connect(plain, &QPlainTextEdit::textChanged, this, handler);
    } else if (auto *rich = qobject_cast<QTextEdit *>(control)) {
        connect(rich, &QTextEdit::textChanged, this, handler);
    } else if (auto *label = qobject_cast<Label *>(control)) {
        connect(label, &Label::textChanged, this, handler);
    } else if (auto *date = qobject_cast<QDateTimeEdit *>(control)) {
        connect(date, &QDateTimeEdit::dateTimeChanged, this, handler);
    } else if (auto *spin = qobject_cast<QSpinBox *>(control)) {
        connect(spin, &QSpinBox::valueChanged, this, handler);
    } else if (auto *button = qobject_cast<QAbstractButton *>(control)) {
        connect(button, &QAbstractButton::toggled, this, handler);
    } else if (auto *combo = qobject_cast<QComboBox *>(control); combo && combo->isEditable()) {
        connect(combo, &QComboBox::editTextChanged, this, handler);
    } else if (combo) {
        connect(combo, &QComboBox::currentIndexChanged, this, handler);
    } else {
        qFatal("a control without a change event: %s", qPrintable(control->objectName()));
    }
}

/// What comes behind a double click is queued: it may unload this window, and the list is not done with its own event
/// before.
void Form::connectList(ListView *list, ListEvent event, const RowHandler &handler)
{
    switch (event) {
    case ListEvent::Click:
        connect(list, &ListView::itemClick, this, handler);
        break;
    case ListEvent::DoubleClick:
        connect(
            list, &ListView::itemDoubleClick, this,
            [this, handler](int row) {
                if (!unloading_) {
                    handler(row);
                }
            },
            Qt::QueuedConnection);
        break;
    case ListEvent::Column:
        connect(list, &ListView::columnClick, this, handler);
        break;
    case ListEvent::Check:
        connect(list, &ListView::itemCheck, this, handler);
        break;
    }
}

void Form::connectSelection(ListView *list, const Handler &handler)
{
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, handler);
    connect(list->model(), &QAbstractItemModel::rowsRemoved, this, handler);
    connect(list->model(), &QAbstractItemModel::modelReset, this, handler);
}

void Form::connectTab(QTabWidget *tabs, const RowHandler &handler)
{
    connect(tabs, &QTabWidget::currentChanged, this, handler);
}

void leaveField()
{
    FocusTracker::instance().leave();
}

} // namespace ui
