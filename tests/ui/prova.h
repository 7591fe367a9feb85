#pragma once

#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/boxes.h"
#include "support/testmain.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFormLayout>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QWindow>

#include <functional>

/// The window that the tests of the window base work on, and the user's hands on it.
namespace prova
{

using namespace Qt::StringLiterals;

using Action = std::function<void()>;

/// What the window told, as "txtUm LostFocus", in order.
inline QStringList told;

/// What a case does inside an event, by the name under which it is told.
inline QHash<QString, Action> actions;

inline void tell(const QString &event)
{
    told.append(event);
    if (const auto action = actions.value(event)) {
        action();
    }
}

/// One control of each kind, all events connected.
class frmProva : public ui::Form
{
public:
    explicit frmProva(const QString &name = u"frmProva"_s) : Form(name)
    {
        rows_ = new QFormLayout(this);
        txtUm = add<QLineEdit>(u"txtUm"_s);
        txtDois = add<QLineEdit>(u"txtDois"_s);
        cboTres = add<QComboBox>(u"cboTres"_s);
        cboTres->setEditable(true);
        cboTres->addItems({u"BOSCH"_s, u"BREMBO"_s});
        cboFixo = add<QComboBox>(u"cboFixo"_s);
        cboFixo->addItems({u"Física"_s, u"Jurídica"_s});
        txtObs = add<QPlainTextEdit>(u"txtObs"_s);
        spnQuatro = add<QSpinBox>(u"spnQuatro"_s);
        dtpCinco = add<ui::DTPicker>(u"dtpCinco"_s);
        lblSeis = add<ui::Label>(u"lblSeis"_s);
        Lista = add<ui::ListView>(u"Lista"_s);
        Lista->addColumn(u"Código"_s, 1000);
        Lista->addItem(u"0001"_s);
        Lista->addItem(u"0002"_s);
        btnFazer = add<QPushButton>(u"btnFazer"_s);
        btnFazer->setText(u"&Fazer"_s);
        connectEvents();
    }

    template<class T>
    T *add(const QString &name)
    {
        auto *control = new T(this);
        control->setObjectName(name);
        rows_->addRow(name, control);
        return control;
    }

    QLineEdit *txtUm;
    QLineEdit *txtDois;
    QComboBox *cboTres;
    QComboBox *cboFixo;
    QPlainTextEdit *txtObs;
    QSpinBox *spnQuatro;
    ui::DTPicker *dtpCinco;
    ui::Label *lblSeis;
    ui::ListView *Lista;
    QPushButton *btnFazer;

    void allowEscape() { setEscapeUnloads(true); }
    void digitsOnly()
    {
        filterKeys(txtUm, [](QChar key) { return key.isDigit() ? key : QChar(); });
    }
    /// A pasted day and month get two digits each.
    void tidied()
    {
        tidyPaste(txtUm, [](const QString &text) { return text == u"1/2" ? u"01/02"_s : text; });
    }
    void watchWholeWindow() { onKey(this, Qt::Key_F5, &frmProva::Window_F5); }
    void needs(const QString &form) { disableUnlessExists(form, {btnFazer}); }
    void watchLate(QWidget *late) { onGotFocus(late, &frmProva::late_GotFocus); }

private:
    void connectEvents()
    {
        onGotFocus(txtUm, &frmProva::txtUm_GotFocus);
        onLostFocus(txtUm, &frmProva::txtUm_LostFocus);
        onGotFocus(txtDois, &frmProva::txtDois_GotFocus);
        onLostFocus(txtDois, &frmProva::txtDois_LostFocus);
        onGotFocus(cboTres, &frmProva::cboTres_GotFocus);
        onLostFocus(cboTres, &frmProva::cboTres_LostFocus);
        onLostFocus(cboFixo, &frmProva::cboFixo_LostFocus);
        onLostFocus(spnQuatro, &frmProva::spnQuatro_LostFocus);
        onGotFocus(Lista, &frmProva::Lista_GotFocus);
        onLostFocus(Lista, &frmProva::Lista_LostFocus);
        onGotFocus(btnFazer, &frmProva::btnFazer_GotFocus);
        onLostFocus(btnFazer, &frmProva::btnFazer_LostFocus);
        onClick(btnFazer, &frmProva::btnFazer_Click);
        onChange(txtUm, &frmProva::txtUm_Change);
        onChange(cboTres, &frmProva::cboTres_Change);
        onChange(cboFixo, &frmProva::cboFixo_Change);
        onChange(txtObs, &frmProva::txtObs_Change);
        onChange(spnQuatro, &frmProva::spnQuatro_Change);
        onChange(dtpCinco, &frmProva::dtpCinco_Change);
        onChange(lblSeis, &frmProva::lblSeis_Change);
        onKey(txtUm, Qt::Key_F1, &frmProva::txtUm_F1);
        onKey(Lista, Qt::Key_Delete, &frmProva::Lista_Delete);
        onKey(Lista, Qt::Key_P, &frmProva::Lista_P);
        onDoubleClick(lblSeis, &frmProva::lblSeis_DblClick);
        connect(Lista, &ui::ListView::itemClick, this, [](int row) { tell(u"Lista Click %1"_s.arg(row)); });
        connect(Lista, &ui::ListView::itemDoubleClick, this, [](int row) { tell(u"Lista DblClick %1"_s.arg(row)); });
    }

    void txtUm_GotFocus() { tell(u"txtUm GotFocus"_s); }
    void txtUm_LostFocus() { tell(u"txtUm LostFocus"_s); }
    void txtDois_GotFocus() { tell(u"txtDois GotFocus"_s); }
    void txtDois_LostFocus() { tell(u"txtDois LostFocus"_s); }
    void cboTres_GotFocus() { tell(u"cboTres GotFocus"_s); }
    void cboTres_LostFocus() { tell(u"cboTres LostFocus"_s); }
    void cboFixo_LostFocus() { tell(u"cboFixo LostFocus"_s); }
    void spnQuatro_LostFocus() { tell(u"spnQuatro LostFocus"_s); }
    void Lista_GotFocus() { tell(u"Lista GotFocus"_s); }
    void Lista_LostFocus() { tell(u"Lista LostFocus"_s); }
    void btnFazer_GotFocus() { tell(u"btnFazer GotFocus"_s); }
    void btnFazer_LostFocus() { tell(u"btnFazer LostFocus"_s); }
    void btnFazer_Click() { tell(u"btnFazer Click"_s); }
    void txtUm_Change() { tell(u"txtUm Change"_s); }
    void cboTres_Change() { tell(u"cboTres Change"_s); }
    void cboFixo_Change() { tell(u"cboFixo Change"_s); }
    void txtObs_Change() { tell(u"txtObs Change"_s); }
    void spnQuatro_Change() { tell(u"spnQuatro Change"_s); }
    void dtpCinco_Change() { tell(u"dtpCinco Change"_s); }
    void lblSeis_Change() { tell(u"lblSeis Change"_s); }
    void txtUm_F1() { tell(u"txtUm F1"_s); }
    void Lista_Delete() { tell(u"Lista Delete"_s); }
    void Lista_P() { tell(u"Lista P"_s); }
    void lblSeis_DblClick() { tell(u"lblSeis DblClick"_s); }
    void Window_F5() { tell(u"Window F5"_s); }
    void late_GotFocus() { tell(u"late GotFocus"_s); }

    QFormLayout *rows_;
};

inline QWindow *windowOf(const QWidget *control)
{
    return control->window()->windowHandle();
}

inline QPoint placeOf(const QWidget *control, QPoint inside)
{
    return control->mapTo(control->window(), inside);
}

inline void click(const QWidget *control)
{
    QTest::mouseClick(windowOf(control), Qt::LeftButton, {}, placeOf(control, control->rect().center()));
}

inline void clickRow(const ui::ListView *list, int row)
{
    const auto place = list->visualRect(list->model()->index(row, 0)).center();
    QTest::mouseClick(windowOf(list), Qt::LeftButton, {}, placeOf(list->viewport(), place));
}

inline void key(const QWidget *control, Qt::Key code, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(windowOf(control), code, modifiers);
}

/// The program moves the focus from outside of any event, and the windows hear of it.
inline void moveTo(QWidget *control)
{
    control->setFocus();
    QCoreApplication::processEvents();
}

inline void typeText(const QWidget *control, const QString &text)
{
    for (const auto letter : text) {
        QTest::sendKeyEvent(QTest::Click, windowOf(control), Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

inline void commit(QWidget *control, const QString &text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(control, &event);
}

/// How a text from elsewhere comes into a box: each of the user's ways.
using Bring = void (*)(QWidget &box, const QString &text);

inline void toClipboard(QWidget &box, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    box.setFocus();
}

inline void paste(QWidget &box, const QString &text)
{
    toClipboard(box, text);
    key(&box, Qt::Key_V, Qt::ControlModifier);
}

inline void pasteByInsert(QWidget &box, const QString &text)
{
    toClipboard(box, text);
    key(&box, Qt::Key_Insert, Qt::ShiftModifier);
}

/// What the mouse meets: a box of several lines has a viewport.
inline QWidget *underTheMouse(QWidget &box)
{
    const auto *area = qobject_cast<QAbstractScrollArea *>(&box);
    return area ? area->viewport() : &box;
}

inline void pasteByMenu(QWidget &box, const QString &text)
{
    toClipboard(box, text);
    auto *target = underTheMouse(box);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3), target->mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(target, &event);
    auto *menu = QApplication::activePopupWidget();
    for (auto *action : menu ? menu->actions() : QList<QAction *>()) {
        if (action->text().endsWith(u"Ctrl+V")) {
            action->trigger();
        }
    }
    if (menu) {
        menu->close();
    }
}

inline void drop(QWidget &box, const QString &text)
{
    QMimeData content;
    content.setText(text);
    QDragEnterEvent enter(QPoint(3, 3), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(underTheMouse(box), &enter);
    QDropEvent event(QPointF(3, 3), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(underTheMouse(box), &event);
}

inline void commitText(QWidget &box, const QString &text)
{
    box.setFocus();
    commit(&box, text);
}

/// An input method does not come to a box that can't be typed in.
inline void waysToBringAText(bool withInputMethod = true)
{
    QTest::addColumn<Bring>("bring");
    QTest::newRow("Ctrl+V") << Bring(paste);
    QTest::newRow("Shift+Insert") << Bring(pasteByInsert);
    QTest::newRow("menu") << Bring(pasteByMenu);
    QTest::newRow("drop") << Bring(drop);
    if (withInputMethod) {
        QTest::newRow("input method") << Bring(commitText);
    }
}

/// A window that is shown and active for the length of a case, with nothing told so far.
class Fixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    frmProva *form_ = nullptr;
};

inline void Fixture::init()
{
    actions.clear();
    form_ = new frmProva;
    form_->show();
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_));
    told.clear();
}

inline void Fixture::cleanup()
{
    actions.clear();
    delete form_;
    QVERIFY(!QApplication::activeModalWidget());
}

} // namespace prova

Q_DECLARE_METATYPE(prova::Bring)
