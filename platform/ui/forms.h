#pragma once

#include <QHash>
#include <QMdiArea>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace ui
{

class Form;

/// The directory of windows: they know each other by name only. `Load` makes a window without showing it, `Show`
/// makes it a child of the main window, `ShowModal` waits until it is unloaded. One instance a name.
class Forms
{
public:
    using Factory = std::function<Form *()>;

    static Forms &instance();

    /// Makes a window known. A name that nobody registered belongs to a window that does not exist.
    void add(const QString &name, const Factory &factory);
    bool exists(const QString &name) const;
    QStringList names() const;

    /// The loaded window, or nullptr.
    Form *find(const QString &name) const;

    /// The window, loaded if it is not. Its `Form_Load` has run.
    Form *Load(const QString &name);

    /// Brings a window up as a child of the main window; one that is up comes to the front as it is. Where a modal
    /// window is open, the window opens modal above it, a child of the main window too.
    Form *Show(const QString &name);

    /// `Show` for a command that asks for a mode: a window that was loaded in another one is unloaded and loaded
    /// afresh; one that was loaded in this mode comes to the front as it is.
    Form *ShowInMode(const QString &name);

    /// `Show` for an opening on one record: a window that is up shows another one and is unloaded first.
    Form *ShowAfresh(const QString &name);

    /// What tells the mode of the next load. Without one all windows are of one mode.
    void setModeSource(const std::function<int()> &source) { modeSource_ = source; }

    /// A window that is up comes to the front where it stands.
    void bringToFront(const QString &name);

    /// Brings a window up modally and returns when it has been unloaded.
    void ShowModal(const QString &name);

    void Unload(const QString &name);
    void unloadAll();

    /// The named control of a window, which is opened (`Show`) if it is not. Fails loudly on a name that does not
    /// exist.
    QWidget *control(const QString &form, const QString &control);

    /// Writes the text of a control of a window (text box, label or combo), as a hand-back does.
    void write(const QString &form, const QString &control, const QString &text);

    /// Where child windows go, and the bar above it, which takes its height from what they are centred in. Without an
    /// area they are windows of their own.
    void setArea(QMdiArea *area, QWidget *bar = nullptr);
    QMdiArea *area() const { return area_; }

private:
    friend class Form;
    friend void CentraForm(Form &form, bool onScreen);
    void forget(Form *form);
    Form *make(const QString &name);
    int mode() const { return modeSource_ ? modeSource_() : 0; }
    bool goesIntoArea(const Form &form) const;
    void bringUp(Form &form);
    void bringToFront(Form &form);
    void takeFromArea(Form &form);
    void showInArea(Form &form);
    void showAlone(Form &form, QWidget *above);
    void place(Form &form);

    QHash<QString, Factory> factories_;
    QHash<QString, Form *> loaded_;
    QHash<QString, int> modes_; // by name, as they were when the window was loaded last
    std::function<int()> modeSource_;
    QPointer<QMdiArea> area_;
    QPointer<QWidget> bar_;
};

/// The part of a caption that tells windows apart: what stands in its last brackets, behind the company's name.
QString captionTail(const QString &caption);

} // namespace ui
