#include "platform/ui/forms.h"

#include "platform/runtime/error.h"
#include "platform/ui/application.h"
#include "platform/ui/focus.h"
#include "platform/ui/form.h"
#include "platform/ui/tabstops.h"
#include "platform/ui/units.h"

#include <QApplication>
#include <QEventLoop>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

constexpr int objectNotSet = 91;
constexpr int twipsPerPixel = 15;
constexpr int marginTwips = 200;

[[noreturn]] void raiseUnknown(const QString &name)
{
    runtime::raise(objectNotSet, {name}, runtime::Wording::UnknownName);
}

QMdiSubWindow *frameOf(const Form &form)
{
    return qobject_cast<QMdiSubWindow *>(form.parentWidget());
}

/// The size that the window's layout file gives, or what its controls need.
QSize wantedSize(const Form &form)
{
    return form.testAttribute(Qt::WA_Resized) ? form.size() : form.sizeHint();
}

/// What a window may take on the screen, its title bar left aside.
QSize roomOnScreen(const QWidget &window)
{
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return window.screen()->availableGeometry().size() - QSize(0, title);
}

void centreOnScreen(QWidget &window)
{
    const auto room = window.screen()->availableGeometry();
    const auto free = room.size() - window.frameGeometry().size();
    window.move(room.topLeft() + QPoint(std::max(0, free.width() / 2), std::max(0, free.height() / 2)));
}

void centreInArea(QWidget &frame, const QMdiArea &area, const QWidget *bar)
{
    const auto *main = area.window();
    const int above = (bar ? bar->height() : 0) + marginTwips / twipsPerPixel;
    const int left = (main->width() - frame.width()) / 2;
    const int top = (main->height() - frame.height()) / 2 - above;
    frame.move(std::max(0, left), std::max(0, top));
}

/// The first control by tab order, unless the window's load has chosen one.
void focusFirst(QWidget &form)
{
    if (auto *first = form.focusWidget() ? nullptr : firstStop(form)) {
        first->setFocus();
    }
}

/// The area has this key for all its windows; with one in every frame it would be ambiguous, and nothing would close.
void dropCloseKey(QMdiSubWindow &frame)
{
    for (auto *action : frame.systemMenu()->actions()) {
        action->setShortcuts(QList<QKeySequence>());
    }
}

/// The bar of a minimized window is too short for a caption that begins with the company's name.
void tellTailWhenSmall(QMdiSubWindow &frame, const Form &form)
{
    QObject::connect(&frame, &QMdiSubWindow::windowStateChanged, &form, [&](Qt::WindowStates, Qt::WindowStates now) {
        const bool small = now.testFlag(Qt::WindowMinimized);
        frame.setWindowTitle(small ? captionTail(form.windowTitle()) : form.windowTitle());
        frame.setToolTip(small ? form.windowTitle() : QString());
    });
}

} // namespace

Forms &Forms::instance()
{
    static Forms forms;
    return forms;
}

void Forms::setArea(QMdiArea *area, QWidget *bar)
{
    area_ = area;
    bar_ = bar;
}

void Forms::add(const QString &name, const Factory &factory)
{
    factories_.insert(name, factory);
}

bool Forms::exists(const QString &name) const
{
    return factories_.contains(name);
}

QStringList Forms::names() const
{
    auto names = factories_.keys();
    names.sort();
    return names;
}

Form *Forms::find(const QString &name) const
{
    return loaded_.value(name);
}

Form *Forms::Load(const QString &name)
{
    auto *form = find(name);
    return form ? form : make(name);
}

Form *Forms::make(const QString &name)
{
    const auto factory = factories_.value(name);
    if (!factory) {
        raiseUnknown(name);
    }
    modes_.insert(name, mode()); // its load may set another one for a window that it opens
    // Its load may show its own window, so it is known before, and may end it, so it is watched.
    const QPointer<Form> form = factory();
    loaded_.insert(name, form);
    try {
        form->Form_Load();
    } catch (...) {
        form->Unload();
        throw;
    }
    return form;
}

Form *Forms::Show(const QString &name)
{
    auto *form = Load(name);
    if (form && !form->unloading()) {
        bringUp(*form);
    }
    return form;
}

Form *Forms::ShowInMode(const QString &name)
{
    return find(name) && modes_.value(name) != mode() ? ShowAfresh(name) : Show(name);
}

Form *Forms::ShowAfresh(const QString &name)
{
    Unload(name);
    return Show(name);
}

bool Forms::goesIntoArea(const Form &form) const
{
    return area_ && !form.isAncestorOf(area_);
}

void Forms::bringUp(Form &form)
{
    auto *modal = QApplication::activeModalWidget();
    if (modal) {
        takeFromArea(form);
    }
    if (form.isVisible() || frameOf(form)) {
        bringToFront(form);
    } else if (modal) {
        form.setWindowModality(Qt::ApplicationModal);
        showAlone(form, modal);
    } else if (goesIntoArea(form)) {
        showInArea(form);
    } else {
        showAlone(form, nullptr);
    }
}

/// A modal window holds the main window off: what is called from it has to stand above it.
void Forms::takeFromArea(Form &form)
{
    if (auto *frame = frameOf(form)) {
        auto *area = frame->mdiArea();
        area->removeSubWindow(&form);
        area->removeSubWindow(frame);
        Application::discard(frame, form.loopLevel());
    }
}

void Forms::bringToFront(const QString &name)
{
    if (auto *form = find(name); form && (form->isVisible() || frameOf(*form))) {
        bringToFront(*form);
    }
}

void Forms::bringToFront(Form &form)
{
    if (auto *frame = frameOf(form)) {
        frame->isMinimized() ? frame->showNormal() : frame->show();
        frame->mdiArea()->setActiveSubWindow(frame);
        return;
    }
    form.isMinimized() ? form.showNormal() : form.show();
    form.raise();
    form.activateWindow();
}

void Forms::showInArea(Form &form)
{
    const auto wanted = wantedSize(form);
    auto *frame = area_->addSubWindow(&form);
    frame->installEventFilter(&form);
    dropCloseKey(*frame);
    tellTailWhenSmall(*frame, form);
    frame->setWindowIcon(form.windowIcon());
    frame->ensurePolished();
    const auto border = frame->sizeHint() - form.sizeHint();
    frame->resize((wanted + border).boundedTo(area_->viewport()->size()).expandedTo(frame->minimumSizeHint()));
    place(form);
    focusFirst(form);
    frame->show();
    area_->setActiveSubWindow(frame);
}

namespace
{

/// Not every desktop gives the activity back to the window below, and a window without it never hears that the focus
/// is in its fields. A box that has come up since keeps it.
void returnTo(QWidget &below, Form &form)
{
    const auto back = [caller = &below] {
        if (QApplication::activeModalWidget() == caller) {
            backTo(caller);
        }
    };
    QObject::connect(&form, &Form::unloaded, &below, back, Qt::QueuedConnection);
}

} // namespace

/// A window of its own, kept above the one that it was opened from.
void Forms::showAlone(Form &form, QWidget *above)
{
    if (above) {
        form.setWindowFlag(Qt::Dialog);
        form.winId();
        form.windowHandle()->setTransientParent(above->window()->windowHandle());
        returnTo(*above->window(), form);
    }
    form.ensurePolished();
    form.resize(wantedSize(form).boundedTo(roomOnScreen(form)).expandedTo(form.minimumSizeHint()));
    place(form);
    focusFirst(form);
    form.show();
    form.raise();
    form.activateWindow();
}

void Forms::place(Form &form)
{
    if (form.centre_ == Form::Centre::No) {
        return;
    }
    if (auto *frame = frameOf(form); frame && form.centre_ == Form::Centre::InArea) {
        centreInArea(*frame, *frame->mdiArea(), bar_);
    } else if (!frame) {
        centreOnScreen(form);
    }
}

void Forms::ShowModal(const QString &name)
{
    auto *form = Load(name);
    if (!form || form->unloading()) {
        return;
    }
    if (form->isVisible()) {
        bringToFront(*form);
        return;
    }
    const QPointer<QWidget> caller = frontWindow();
    FocusTracker::instance().noteModal();
    {
        const FocusTracker::Pause pause;
        QEventLoop loop;
        QObject::connect(form, &Form::unloaded, &loop, &QEventLoop::quit);
        form->setWindowModality(Qt::ApplicationModal);
        showAlone(*form, caller);
        const UnitPause unitPause;
        loop.exec();
    }
    checkEnded();
    backTo(caller);
}

void Forms::Unload(const QString &name)
{
    if (auto *form = find(name)) {
        form->Unload();
    }
}

void Forms::unloadAll()
{
    const auto names = loaded_.keys();
    for (const auto &name : names) {
        Unload(name);
    }
}

QWidget *Forms::control(const QString &formName, const QString &controlName)
{
    auto *form = find(formName);
    if (!form) {
        form = Show(formName);
    }
    auto *control = form->findChild<QWidget *>(controlName);
    if (!control) {
        raiseUnknown(formName + u'.' + controlName);
    }
    return control;
}

void Forms::write(const QString &form, const QString &controlName, const QString &text)
{
    setTextOf(control(form, controlName), text);
}

void Forms::forget(Form *form)
{
    loaded_.removeIf([form](const auto &entry) { return entry.value() == form; });
}

QString captionTail(const QString &caption)
{
    const auto start = caption.lastIndexOf(u'[');
    const auto end = caption.lastIndexOf(u']');
    return start < 0 || end < start ? caption : caption.sliced(start + 1, end - start - 1);
}

void CentraForm(Form &form, bool onScreen)
{
    form.centre_ = onScreen ? Form::Centre::OnScreen : Form::Centre::InArea;
    if (form.isVisible()) {
        Forms::instance().place(form);
    }
}

} // namespace ui
