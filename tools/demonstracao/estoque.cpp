#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"

#include <QTest>

using namespace Qt::StringLiterals;
using runtime::Value;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

const QString part = u"FILTRO DE ÓLEO"_s;

class Estoque : public QObject
{
    Q_OBJECT

private slots:
    void conferencia();
    void vendaAbreSuaOrdem();

private:
    static void pickPart();
    static void refusedCount(Boxes &boxes);
};

void Estoque::pickPart()
{
    auto *window = form(u"frmMoviEstoque"_s);
    support::key(window, u"txtCodPeca"_s, Qt::Key_F1);
    pick(u"frmCadaPecas"_s, part.toLower(), By::DoubleClick);
    support::key(window, u"txtCodPeca"_s, Qt::Key_Return);
    QTRY_COMPARE(support::text(window, u"lblNome"_s), part);
    QCOMPARE(support::text(window, u"lblEstoqueMin"_s), u"05"_s);
}

void Estoque::refusedCount(Boxes &boxes)
{
    auto *window = form(u"frmMoviEstoque"_s);
    refused(window, boxes, u"Código da Peça/Serviço Inválido"_s, {});
    boxes.exclamation(u"Código não localizado"_s);
    type(window, u"txtCodPeca"_s, u"999"_s);
    boxes.finish();
    pickPart();
    refused(window, boxes, u"Data Inválida"_s, {});
    support::key(window, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(support::text(window, u"txtData"_s), runtime::Format(runtime::Today(), u"dd/mm/yyyy"));
    refused(window, boxes, u"Descrição Inválida"_s, {{u"txtDescricao"_s, u"contagem do balcão"_s}});
    refused(window, boxes, u"Quantidade Inválida"_s, {{u"txtValor"_s, u"7"_s}});
}

void Estoque::conferencia()
{
    Boxes boxes;
    auto *window = choose(u"itmMoviEstoque"_s, u"frmMoviEstoque"_s);
    refusedCount(boxes);
    click(window, u"optConf"_s);
    confirmed(window, boxes, u"btnIncluir"_s, u"Confirma Inclusão"_s);

    auto row = core::DBDados->OpenRecordset(u"SELECT * FROM Estoque ORDER BY Codigo"_s);
    row.MoveLast();
    QCOMPARE(row.value(u"Descricao"), Value(u"CONTAGEM DO BALCÃO"_s));
    for (const QStringView column : {u"Entrada", u"Saida", u"Estoque"}) {
        QCOMPARE(row.value(column), Value(7.0F));
    }
    click(window, u"btnPreenche"_s);
    QCOMPARE(cadastro::columnOf(window, 5), (QStringList{u"12"_s, u"10"_s, u"07"_s}));
    picture(u"frmMoviEstoque_conferencia"_s);
    done(u"estoque contado: conferência de 7, lançada e listada"_s);
}

void Estoque::vendaAbreSuaOrdem()
{
    auto *window = form(u"frmMoviEstoque"_s);
    const QString sale = cadastro::columnOf(window, 2).at(1);
    QVERIFY2(sale.startsWith(u"VENDA O.S. "_s), qPrintable(sale));
    cadastro::doubleClickRow(window, 1);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSConsulta"_s));
    QTRY_COMPARE(support::text(form(u"frmOSConsulta"_s), u"lblCodigo"_s), sale.right(4));
    done(u"venda no estoque abre a sua ordem, "_s + sale.right(4));
}

} // namespace

Assunto estoque()
{
    return std::make_unique<Estoque>();
}

} // namespace demonstracao

#include "estoque.moc"
