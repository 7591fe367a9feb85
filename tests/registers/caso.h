#pragma once

#include "support/boxes.h"
#include "support/cadastro.h"

#include <QAbstractButton>

#include <memory>
#include <utility>

/// What the cases on one register are made of, whichever it is.
namespace cadastro
{

inline const QString null = QStringLiteral("<Null>");

inline const QString askInclude = QStringLiteral("Confirma a Inclusão");
inline const QString askAlter = QStringLiteral("Confirma a Alteração");
inline const QString askDelete = QStringLiteral("Deseja excluir o registro atual");

/// One test case: a program folder of its own, the boxes that it expects, the register's window.
class Case
{
protected:
    explicit Case(QString window) : window_(std::move(window)) {}

    void begin()
    {
        program_ = std::make_unique<support::Program>();
        boxes_ = std::make_unique<support::Boxes>();
        boxes_->title(QStringLiteral("Tarvelo"));
    }

    void end()
    {
        boxes_.reset();
        form_ = nullptr;
        program_.reset();
    }

    void open(int mode = 0) { form_ = cadastro::open(window_, mode); }

    QString shown(const QString &control) const { return support::text(form_, control); }
    QStringList codes() const { return columnOf(form_); }

    /// Clicks the row of a code.
    void load(const QString &code) const
    {
        const auto row = int(codes().indexOf(code));
        QVERIFY2(row >= 0, qPrintable(code));
        clickRow(form_, row);
        QCOMPARE(shown(QStringLiteral("lblCodigo")), code);
    }

    /// Looks a text up in the database, in the field of the combo's entry or in the one that is chosen.
    void search(const QString &text) const
    {
        support::type(form_, QStringLiteral("txtTexto"), text);
        support::click(form_, QStringLiteral("btnPesquisar"));
    }
    void search(int entry, const QString &text) const
    {
        choose(form_, QStringLiteral("cboPesquisa"), entry);
        search(text);
    }

    /// Looks a text up in the list.
    void locate(const QString &text) const
    {
        support::type(form_, QStringLiteral("txtTexto"), text);
        support::click(form_, QStringLiteral("btnLocalizar"));
    }

    /// Presses a button and answers its question with Yes.
    void answer(const QString &question, const QString &button)
    {
        boxes_->question(question, true);
        support::click(form_, button);
    }

    // What holds in every register, each showing it on records of its own.

    Rows stored(const QString &table) const { return program_->rows(QStringLiteral("SELECT * FROM ") + table); }

    /// A deletion that is answered with No.
    void compareKeptOnNo(const QString &table) const
    {
        const Rows before = stored(table);
        boxes_->question(askDelete, false);
        support::click(form_, QStringLiteral("btnExcluir"));
        boxes_->finish();
        QCOMPARE(stored(table), before);
    }

    /// A deletion with no record shown.
    void compareDeletionRefused(const QString &table) const
    {
        const Rows before = stored(table);
        boxes_->exclamation(QStringLiteral("Código Inválido"));
        support::click(form_, QStringLiteral("btnExcluir"));
        boxes_->finish();
        QCOMPARE(focusOf(form_), QStringLiteral("Lista"));
        QCOMPARE(stored(table), before);
    }

    /// "Localizar" with a text that no row begins with shows the selected row again, over what was typed meanwhile.
    void compareSelectedRowLocated(int row, const QString &typedField, const QString &sought,
                                   const Fields &record) const
    {
        clickRow(form_, row);
        support::type(form_, typedField, QStringLiteral("OUTRO"));
        locate(sought);
        QCOMPARE(list(form_)->selectedRow(), row);
        QCOMPARE(cadastro::shown(form_, record), record);
    }

    /// "Localizar" without a text leaves the record as it stands.
    void compareOnlyFocusMoved(int row, const QString &typedField) const
    {
        clickRow(form_, row);
        support::type(form_, typedField, QStringLiteral("OUTRO"));
        support::click(form_, QStringLiteral("btnLocalizar"));
        QCOMPARE(focusOf(form_), QStringLiteral("Lista"));
        QCOMPARE(shown(typedField), QStringLiteral("OUTRO"));
    }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *form_ = nullptr;

private:
    QString window_;
};

/// The buttons of every register, one data row each; what "Localizar" tells differs.
inline void addButtons(const QString &locateTip)
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("tip");
    const auto row = [](const char *button, const char *caption, const QString &tip) {
        QTest::newRow(button) << QString::fromLatin1(button) << QString::fromLatin1(caption) << tip;
    };
    row("btnPesquisar", "Pesquisar", QStringLiteral("Clique aqui para Pesquisar um Registro no Banco de Dados"));
    row("btnLocalizar", "Localizar", locateTip);
    row("btnTodos", "Todos Registros",
        QStringLiteral("Clique aqui para Visualizar Todos os Registro do Banco de Dados"));
    row("btnIncluir", "Incluir", QStringLiteral("Clique Aqui para incluir o novo Registro"));
    row("btnAlterar", "Alterar", QStringLiteral("Clique aqui para alterar dados do registro selecionado"));
    row("btnExcluir", "Excluir", QStringLiteral("Clique aqui para excluir o registro selecionado"));
    row("btnCancelar", "Limpar Campos", QStringLiteral("Clique aqui para Limpar todos os campos acima"));
    row("btnVoltar", "Voltar", QStringLiteral("Clique aqui para voltar à Tela Inicial"));
}

/// The button of the data row, and the one tip that is no button's.
inline void compareButton(ui::Form *form)
{
    QFETCH(QString, button);
    const auto *found = support::control<QAbstractButton>(form, button);
    QTEST(found->text().remove(u'&'), "caption");
    QTEST(found->toolTip(), "tip");
    QVERIFY(found->isEnabled());
    QCOMPARE(support::controlOf(form, QStringLiteral("cboPesquisa"))->toolTip(),
             QStringLiteral("Selecione o tipo de Campo que você deseja fazer uma pesquisa"));
}

/// The list's titles, and its widths in proportion to each other.
inline void compareColumns(ui::Form *form, const QList<std::pair<QString, int>> &columns)
{
    const auto *header = list(form)->header();
    QCOMPARE(header->count(), int(columns.size()));
    const double scale = double(header->sectionSize(1)) / columns.at(1).second;
    for (int column = 0; column < header->count(); ++column) {
        QCOMPARE(titlesOf(form).at(column), columns.at(column).first);
        QVERIFY2(qAbs(header->sectionSize(column) - columns.at(column).second * scale) <= 1.5,
                 qPrintable(columns.at(column).first));
    }
}

inline QStringList entriesOf(ui::Form *form, const QString &combo)
{
    QStringList entries;
    const auto *box = support::control<QComboBox>(form, combo);
    for (int entry = 0; entry < box->count(); ++entry) {
        entries << box->itemText(entry);
    }
    return entries;
}

} // namespace cadastro
