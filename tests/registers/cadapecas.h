#pragma once

#include "core/banco.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/error.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "tests/registers/caso.h"
#include "workorders/workorders.h"

#include <QLabel>

/// What the cases on the register of parts have in common: a program of their own, its boxes, the window and the rows
/// that it is shown with.
namespace cadapecas
{

using cadastro::askInclude;
using cadastro::Fields;
using cadastro::null;
using cadastro::Rows;

inline const QString window = QStringLiteral("frmCadaPecas");

/// A part as it is typed: under stock control, counted in pieces.
inline const Fields oilFilter{
    {QStringLiteral("txtNome"), QStringLiteral("FILTRO DE OLEO")},
    {QStringLiteral("cboMarca"), QStringLiteral("GOL 1.0")},
    {QStringLiteral("txtCusto"), QStringLiteral("12,50")},
    {QStringLiteral("txtVenda"), QStringLiteral("1.025,90")},
    {QStringLiteral("txtEstoque"), QStringLiteral("05")},
    {QStringLiteral("txtEstoqueAtual"), QStringLiteral("10")},
    {QStringLiteral("txtCodExterno"), QStringLiteral("FO-100")},
};

/// The fields that are typed without stock control.
inline Fields withoutStock(const Fields &fields)
{
    Fields kept;
    for (const auto &field : fields) {
        if (!field.first.startsWith(QLatin1String("txtEstoque"))) {
            kept.append(field);
        }
    }
    return kept;
}

/// The box of a tax rate that its column does not hold.
inline QString overflowBox()
{
    try {
        core::AcrescentaLinha(QStringLiteral("Pecas"),
                              [](dao::Recordset &row) { row[u"ICMS"] = QStringLiteral("40000"); });
    } catch (const runtime::RuntimeError &error) {
        return cadastro::errorBox(error.number(), error.description());
    }
    return {};
}

/// The same fields with nothing in them.
inline Fields emptied(const QStringList &names)
{
    Fields fields;
    for (const QString &name : names) {
        fields.append({name, QString()});
    }
    return fields;
}

class Case : public QObject, protected cadastro::Case
{
protected:
    Case() : cadastro::Case(window) {}

    static void registerWindows()
    {
        registers::registerForms();
        workorders::registerForms();
    }

    void openWithTaxFields()
    {
        program_->config(QStringLiteral("Personalizacao"), QStringLiteral("2-2"));
        open();
    }

    /// Types the fields of a new part and confirms.
    void include(const Fields &fields)
    {
        cadastro::fill(form_, fields);
        answer(askInclude, QStringLiteral("btnIncluir"));
    }

    /// The checks that including and altering share, one data row each.
    static void addBadFields()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("message");
        const auto row = [](const char *name, const char *field, const QString &content, const char *message) {
            QTest::newRow(name) << QString::fromLatin1(field) << content << QString::fromUtf8(message);
        };
        row("no name", "txtNome", {}, "Nome Inválido");
        row("no make", "cboMarca", {}, "Marca Inválida");
        row("make too long", "cboMarca", QString(201, u'X'), "Marca Inválida");
        row("no cost", "txtCusto", {}, "Valor de Custo Inválido");
        row("cost no number", "txtCusto", QStringLiteral("1,2,3"), "Valor de Custo Inválido");
        row("no price", "txtVenda", {}, "Valor de Venda Inválido");
        row("price no number", "txtVenda", QStringLiteral(","), "Valor de Venda Inválido");
        row("no minimum", "txtEstoque", {}, "Estoque Mínimo Inválido");
    }

    // --- rows

    /// A part with its columns as in a SET clause.
    qint32 part(const QString &name, const QString &kind = QStringLiteral("P"), const QString &columns = {}) const
    {
        const qint32 code = program_->part(name, kind, QStringLiteral("10,00"));
        if (!columns.isEmpty()) {
            program_->sql(QStringLiteral("UPDATE Pecas SET %1 WHERE Codigo = %2").arg(columns).arg(code));
        }
        return code;
    }

    /// A row of the ledger, the last one so far.
    void ledger(qint32 part, const QString &balance, const QString &date = QStringLiteral("05/10/2024")) const
    {
        program_->sql(QStringLiteral("INSERT INTO Estoque (CodPeca, Data, Descricao, Entrada, Estoque) "
                                     "VALUES (%1, #%2#, 'ENTRADA', %3, %3)")
                          .arg(part)
                          .arg(date, balance));
    }

    /// One of each: a part by the litre under stock control (1), a service without it (2), a part by the piece (3).
    void threeParts() const
    {
        const qint32 oil = part(QStringLiteral("OLEO 20W50"), QStringLiteral("P"),
                                QStringLiteral("MarcaModelo = 'TODOS', UM = 2, ValorCusto = 20, ValorVenda = 30.5, "
                                               "EstoqueMinimo = 2.5, ControlaEstoque = -1, CodExterno = 'OL-20', "
                                               "ICMS = 18, ClassFiscal = '2710.19'"));
        part(QStringLiteral("ALINHAMENTO"), QStringLiteral("S"),
             QStringLiteral("MarcaModelo = 'CARROS', ValorCusto = 0, ValorVenda = 80"));
        const qint32 filter = part(QStringLiteral("FILTRO DE AR"), QStringLiteral("P"),
                                   QStringLiteral("MarcaModelo = 'GOL', ValorCusto = 1000, ValorVenda = 2345.6, "
                                                  "EstoqueMinimo = 2, ControlaEstoque = -1, CodExterno = 'FA-7', "
                                                  "ICMS = 12, ClassFiscal = '8421'"));
        ledger(oil, QStringLiteral("40"), QStringLiteral("05/12/2024"));
        ledger(oil, QStringLiteral("37.5"), QStringLiteral("05/10/2024"));
        ledger(filter, QStringLiteral("3"));
    }

    Rows parts() const { return program_->rows(QStringLiteral("SELECT * FROM Pecas ORDER BY Codigo")); }
    Rows ledger() const { return program_->rows(QStringLiteral("SELECT * FROM Estoque ORDER BY Codigo")); }

    // --- the clerk's hands and eyes

    void click(const QString &button) const { support::click(form_, button); }
    void type(const QString &control, const QString &text) const { support::type(form_, control, text); }
    QString text(const QString &control) const { return support::text(form_, control); }
    QWidget *at(const QString &control) const { return support::controlOf(form_, control); }
    bool chosen(const QString &option) const { return support::control<QAbstractButton>(form_, option)->isChecked(); }

    /// The fixed caption with this text, whatever letter of it is the mnemonic. A missing one ends the test.
    QLabel *caption(const QString &text) const
    {
        for (auto *label : form_->findChildren<QLabel *>()) {
            if (label->text().remove(u'&') == text) {
                return label;
            }
        }
        qFatal("No caption %s", qPrintable(text));
    }

    /// Lists all and clicks the row of a code.
    void load(const QString &code) const
    {
        click(QStringLiteral("btnTodos"));
        cadastro::Case::load(code);
    }

    void compareFields(const Fields &expected) const
    {
        for (const auto &[name, value] : expected) {
            QVERIFY2(text(name) == value,
                     qPrintable(QStringLiteral("%1: \"%2\" for \"%3\"").arg(name, text(name), value)));
        }
    }
};

} // namespace cadapecas
