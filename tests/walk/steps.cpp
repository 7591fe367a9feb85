#include "core/janelas.h"
#include "platform/ui/form.h"
#include "tests/walk/targets.h"
#include "tests/walk/typing.h"
#include "tests/walk/walk.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeySequence>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

#include <array>

using namespace Qt::StringLiterals;

namespace walk
{

namespace
{

struct Key {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    QStringView text;
    int weight;
};

constexpr auto keys = std::to_array<Key>({
    {Qt::Key_Tab, Qt::NoModifier, u"\t", 12},      {Qt::Key_Backtab, Qt::ShiftModifier, {}, 5},
    {Qt::Key_Return, Qt::NoModifier, u"\r", 12},   {Qt::Key_Escape, Qt::NoModifier, u"\u001b", 3},
    {Qt::Key_F1, Qt::NoModifier, {}, 4},           {Qt::Key_F2, Qt::NoModifier, {}, 4},
    {Qt::Key_Insert, Qt::NoModifier, {}, 3},       {Qt::Key_Delete, Qt::NoModifier, u"\u007f", 3},
    {Qt::Key_Down, Qt::NoModifier, {}, 6},         {Qt::Key_Up, Qt::NoModifier, {}, 4},
    {Qt::Key_Left, Qt::NoModifier, {}, 2},         {Qt::Key_Right, Qt::NoModifier, {}, 2},
    {Qt::Key_Home, Qt::NoModifier, {}, 2},         {Qt::Key_End, Qt::NoModifier, {}, 2},
    {Qt::Key_PageUp, Qt::NoModifier, {}, 1},       {Qt::Key_PageDown, Qt::NoModifier, {}, 1},
    {Qt::Key_Backspace, Qt::NoModifier, u"\b", 3}, {Qt::Key_Space, Qt::NoModifier, u" ", 4},
    {Qt::Key_A, Qt::ControlModifier, {}, 1},       {Qt::Key_X, Qt::ControlModifier, {}, 1},
    {Qt::Key_Z, Qt::ControlModifier, {}, 1},       {Qt::Key_F4, Qt::ControlModifier, {}, 2},
    {Qt::Key_F6, Qt::ControlModifier, {}, 2},      {Qt::Key_P, Qt::NoModifier, u"p", 1},
});

template<class Rows, class Draw>
const auto &weighted(const Rows &rows, const Draw &draw)
{
    int all = 0;
    for (const auto &row : rows) {
        all += row.weight;
    }
    int at = draw(all);
    for (const auto &row : rows) {
        at -= row.weight;
        if (at < 0) {
            return row;
        }
    }
    return *std::begin(rows);
}

QMdiArea *area()
{
    return ui::Forms::instance().area();
}

std::vector<QString> loaded()
{
    std::vector<QString> names;
    for (const auto &name : ui::Forms::instance().names()) {
        if (ui::Forms::instance().find(name) != nullptr) {
            names.push_back(name);
        }
    }
    return names;
}

} // namespace

// --- windows

void Walk::inPopup(QWidget &popup)
{
    constexpr auto quick = std::to_array<Qt::Key>({Qt::Key_Escape, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return});
    if (const auto *menu = qobject_cast<QMenu *>(&popup);
        menu != nullptr && !menu->actions().isEmpty() && below(3) != 0) {
        auto *action = menu->actions().at(below(static_cast<int>(menu->actions().size())));
        tell(u"menu "_s + action->objectName());
        hand_.click(popup, menu->actionGeometry(action).center());
        return;
    }
    if (below(2) == 0) {
        const QPoint place(below(std::max(1, popup.width())), below(std::max(1, popup.height())));
        tell(u"clicks into the popup of %1"_s.arg(nameOf(popup.parentWidget())));
        hand_.click(popup, place);
        return;
    }
    const auto key = quick[static_cast<std::size_t>(below(static_cast<int>(quick.size())))];
    tell(u"key %1 in the popup of %2"_s.arg(int(key), 0, 16).arg(nameOf(popup.parentWidget())));
    hand_.press(key);
}

void Walk::logIn(QWidget &form)
{
    auto *code = form.findChild<QWidget *>(u"txtCodigo"_s);
    tell(u"logs in"_s);
    hand_.click(*code, code->rect().center());
    hand_.press(Qt::Key_A, Qt::ControlModifier);
    hand_.type(u"01"_s);
    hand_.type(u"123456"_s);
}

void Walk::inWindow(QWidget &window)
{
    struct Step {
        void (Walk::*take)(QWidget &);
        int weight;
    };
    constexpr auto steps = std::to_array<Step>({
        {&Walk::clickControl, 30},
        {&Walk::typeIntoField, 22},
        {&Walk::pressKey, 22},
        {&Walk::doubleClickList, 6},
        {&Walk::chooseCommand, 6},
        {&Walk::moveFrame, 4},
        {&Walk::paste, 3},
        {&Walk::fillWindow, 3},
        {&Walk::handBack, 2},
        {&Walk::deleteRow, 1},
        {&Walk::unloadByName, 1},
    });
    if (QApplication::activeWindow() == nullptr) {
        window.activateWindow(); // as a window manager does
    }
    const bool beforeLogin = window.objectName() == u"frmSenha"_s || window.objectName() == u"frmSplash"_s;
    end_ = beforeLogin ? u"left at the login"_s : QString();
    if (window.objectName() == u"frmSenha"_s && below(8) != 0) {
        logIn(window);
        return;
    }
    noteLeaving(window);
    (this->*weighted(steps, draw()).take)(window);
}

/// The command that ends the program tells itself.
void Walk::noteLeaving(QWidget &window)
{
    auto *leave = window.findChild<QAction *>(u"mnuSair"_s);
    if (leave != nullptr && !leave->property("noted").toBool()) {
        leave->setProperty("noted", true);
        connect(leave, &QAction::triggered, this, [this] { end_ = u"left by the menu"_s; });
    }
}

/// Mostly the form in front, at times anything that the window shows.
QWidget *Walk::placeOfStep(QWidget &window)
{
    auto *form = frontForm();
    return form != nullptr && form->isVisible() && below(8) != 0 ? form : &window;
}

void Walk::clickControl(QWidget &window)
{
    const auto found = controls(*placeOfStep(window));
    if (found.empty()) {
        pressKey(window);
        return;
    }
    auto *control = oneOf(found);
    if (control->objectName() == u"Toolbar1_19"_s && below(16) != 0) {
        return; // or the program would end every now and then
    }
    const auto place = placeOn(*control, draw());
    tell(u"clicks "_s + nameOf(control));
    hand_.click(*place.widget, place.at);
}

void Walk::doubleClickList(QWidget &window)
{
    const auto found = lists(*placeOfStep(window));
    if (found.empty()) {
        clickControl(window);
        return;
    }
    auto *list = oneOf(found);
    const auto place = placeOn(*list, draw());
    tell(u"double click on "_s + nameOf(list));
    hand_.doubleClick(*place.widget, place.at);
}

void Walk::put(QWidget &field, const QString &text)
{
    tell(u"types '%1' into %2"_s.arg(text, nameOf(&field)));
    hand_.click(field, field.rect().center());
    hand_.press(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) {
        hand_.press(Qt::Key_Delete);
    }
    hand_.type(text);
}

void Walk::typeIntoField(QWidget &window)
{
    const auto found = fields(*placeOfStep(window));
    if (found.empty()) {
        clickControl(window);
        return;
    }
    auto *field = oneOf(found);
    put(*field, below(12) != 0 ? fitting(field->objectName(), draw()) : anything(draw()));
    if (below(3) != 0) {
        hand_.press(Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
    }
}

/// As a clerk who knows what he is doing, up to the button that writes.
void Walk::fillWindow(QWidget &window)
{
    auto *form = frontForm();
    if (form == nullptr) {
        chooseCommand(window);
        return;
    }
    for (auto *field : fields(*form)) {
        if (below(6) != 0) {
            put(*field, fitting(field->objectName(), draw()));
        }
    }
    for (auto *button : controls(*form)) {
        const auto name = button->objectName();
        if ((name == u"btnIncluir"_s || name == u"btnItemAdd"_s || name.startsWith(u"btnFechar"_s)) && below(2) == 0) {
            tell(u"and clicks "_s + nameOf(button));
            hand_.click(*button, button->rect().center());
            return;
        }
    }
}

void Walk::paste(QWidget &window)
{
    static const QStringList texts{u"01/02/1980"_s,   u"01021980"_s, u"11987654321"_s,
                                   u"two\nlines"_s,   u"abc123"_s,   QString(300, u'X'),
                                   QString(20, u'9'), u"\t"_s,       u"1.234,56"_s};
    const auto &text = texts.at(below(static_cast<int>(texts.size())));
    QApplication::clipboard()->setText(text);
    const auto found = fields(*placeOfStep(window));
    if (!found.empty()) {
        put(*oneOf(found), u"A"_s);
    }
    tell(u"pastes '%1'"_s.arg(text.left(20).simplified()));
    hand_.press(Qt::Key_V, Qt::ControlModifier);
    hand_.press(Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
}

void Walk::pressKey(QWidget & /*window*/)
{
    if (below(8) == 0) {
        constexpr QStringView letters = u"ABCDEFGHILMNOPRTUVXZ";
        const auto letter = letters[below(static_cast<int>(letters.size()))];
        tell(u"Alt+%1"_s.arg(letter));
        hand_.press(Qt::Key(letter.unicode()), Qt::AltModifier);
        return;
    }
    const auto &key = weighted(keys, draw());
    tell(u"key %1 at %2"_s.arg(QKeySequence(key.key | key.modifiers).toString(), nameOf(QApplication::focusWidget())));
    hand_.press(key.key, key.modifiers, key.text.toString());
}

void Walk::chooseCommand(QWidget &window)
{
    std::vector<QAction *> found;
    for (auto *action : window.findChildren<QAction *>()) {
        if (action->isEnabled() && action->objectName().startsWith(u"itm"_s)) {
            found.push_back(action);
        }
    }
    if (found.empty()) {
        clickControl(window);
        return;
    }
    auto *action = oneOf(found);
    tell(u"command "_s + action->objectName());
    action->trigger();
}

void Walk::moveFrame(QWidget &window)
{
    if (area() == nullptr || &window != mainWindow() || area()->subWindowList().isEmpty()) {
        chooseCommand(window);
        return;
    }
    const auto frames = area()->subWindowList();
    auto *frame = frames.at(below(static_cast<int>(frames.size())));
    struct Move {
        QStringView name;
        std::function<void()> make;
    };
    const auto moves = std::to_array<Move>({
        {u"activates", [&] { area()->setActiveSubWindow(frame); }},
        {u"minimises", [&] { frame->showMinimized(); }},
        {u"maximises", [&] { frame->showMaximized(); }},
        {u"restores", [&] { frame->showNormal(); }},
        {u"closes", [&] { frame->close(); }},
    });
    const auto &move = moves[static_cast<std::size_t>(below(static_cast<int>(moves.size())))];
    tell(move.name.toString() + u' ' + (frame->widget() != nullptr ? frame->widget()->objectName() : u"?"_s));
    move.make();
}

// --- others

void Walk::deleteRow(QWidget & /*window*/)
{
    static const QStringList tables{u"Clientes"_s,     u"Veiculos"_s,  u"Pecas"_s,   u"Fornecedores"_s,
                                    u"OrdemServico"_s, u"Estoque"_s,   u"Caixa"_s,   u"ContasReceber"_s,
                                    u"ContasPagar"_s,  u"Cheques"_s,   u"Fiados"_s,  u"ContaFiado"_s,
                                    u"Orcamento"_s,    u"OrcaPecas"_s, u"OSPecas"_s, u"NotasEntradas"_s};
    const auto *form = frontForm();
    const auto *shown = form != nullptr ? form->findChild<QWidget *>(u"lblCodigo"_s) : nullptr;
    const int code = shown != nullptr && below(2) == 0 ? ui::textOf(shown).toInt() : 1 + below(40);
    const auto &table = tables.at(below(static_cast<int>(tables.size())));
    tell(u"elsewhere: "_s + watch_.elsewhere(u"DELETE * FROM %1 WHERE Codigo = %2"_s.arg(table).arg(code)));
}

void Walk::unloadByName(QWidget & /*window*/)
{
    auto names = loaded();
    std::erase_if(names, [](const QString &name) { return name == u"frmSenha"_s || name == u"frmSplash"_s; });
    if (!names.empty()) {
        const auto &name = oneOf(names);
        tell(u"the program unloads "_s + name);
        ui::Forms::instance().Unload(name);
    }
}

/// As a picker that closes: it writes a code and gives the field the focus.
void Walk::handBack(QWidget & /*window*/)
{
    static const std::vector<std::pair<QString, QString>> targets{
        {u"frmOSAbre"_s, u"txtCodVeiculo"_s},
        {u"frmOSAbre"_s, u"txtCodPeca"_s},
        {u"frmCadaVeiculos"_s, u"txtCodCliente"_s},
        {u"frmCadaFast"_s, u"txtCodCliente"_s},
        {u"frmOSFormaPagto"_s, u"txtCodCliente"_s},
        {u"frmMoviEstoque"_s, u"txtCodPeca"_s},
        {u"frmOSAltera"_s, u"txtCodOS"_s},
        {u"frmOSOrcaAltera"_s, u"txtCodOrcamento"_s},
        {u"frmOSOrcaNovo"_s, u"txtCodCliente"_s},
        {u"frmNota"_s, u"txtOS"_s},
        {u"frmMoviEntradaPeca"_s, u"txtCodPeca"_s},
        {u"frmMoviEntradaPeca"_s, u"txtCodFornecedor"_s},
        {u"frmRelaSelecaoNotasEntradas"_s, u"txtCodForn"_s},
    };
    const auto &[form, control] = oneOf(targets);
    auto &forms = ui::Forms::instance();
    if (forms.find(form) == nullptr) {
        return;
    }
    const auto code = u"%1"_s.arg(1 + below(40), 4, 10, QChar(u'0'));
    tell(u"hands %1 back to %2.%3"_s.arg(code, form, control));
    forms.write(form, control, code);
    forms.bringToFront(form);
    core::SelecionaTexto(forms.control(form, control));
}

} // namespace walk
