#include "core/config.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/pagamento.h"

#include <QTabWidget>
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

/// What was printed last, all its sheets.
QStringList paper()
{
    QStringList lines;
    for (const printer::Page &page : printer::printer().lastDocument()) {
        lines << page.lines();
    }
    return lines;
}

QString worth(const QString &table, const QString &code)
{
    return runtime::Format(value(u"SELECT Valor FROM %1 WHERE Codigo = %2"_s.arg(table, code)), u"###,##0.00");
}

class Orcamentos : public QObject
{
    Q_OBJECT

private slots:
    void orcamentoImpresso();
    void orcamentoPreVisualizado();
    void orcamentoAlterado();
    void orcamentoViraOrdem();
    void ordemAlterada();
    void maoDeObraCalculada();
    void notaImpressa();

private:
    static ui::Form *query();
};

/// For somebody who called by phone and is in no register.
void Orcamentos::orcamentoImpresso()
{
    core::GravaINI(u"Config"_s, u"Juros"_s, u"0,03"_s, true);
    Boxes boxes;
    auto *window = choose(u"itmOSOrcaNovo"_s, u"frmOSOrcaNovo"_s);
    refused(window, boxes, u"Marca/Modelo do Veículo Inválido"_s, {{u"cboMarca"_s, u"uno mille"_s}});
    cadastro::fill(window, {{u"txtNome"_s, u"ana paula de souza"_s},
                            {u"txtFone1"_s, u"(11) 5555-9876"_s},
                            {u"cboAno"_s, u"2008/2009"_s},
                            {u"txtObs"_s, u"pedido por telefone"_s}});
    addItem(u"1"_s, u"kit de embreagem"_s, u"450"_s, u"frmOSOrcaNovo"_s);
    addItem(u"3,5"_s, u"óleo do motor"_s, u"40"_s, u"frmOSOrcaNovo"_s);
    picture(u"frmOSOrcaNovo"_s);
    boxes.question(u"Confirma Inclusão"_s, true).question(u"Imprimir Orçamento Nº 0001"_s, true);
    click(window, u"btnIncluir"_s);
    QCOMPARE(paper().filter(u"ORÇAMENTO Nº 0001"_s).size(), 1);
    QVERIFY(paper().contains(u"À VISTA...........: R$ 531,00"_s));
    QVERIFY(paper().contains(u"01 + 01...........: R$ 303,85"_s));
    close(window);
    done(u"orçamento 0001 incluído e impresso com as formas de pagamento"_s);
}

/// The query with the first estimate shown.
ui::Form *Orcamentos::query()
{
    auto *window = choose(u"itmOSOrcaConsulta"_s, u"frmOSOrcaConsulta"_s);
    cadastro::clickRow(window, 0);
    return window;
}

void Orcamentos::orcamentoPreVisualizado()
{
    auto *window = query();
    QCOMPARE(support::text(window, u"lblNome"_s), u"ANA PAULA DE SOUZA"_s);
    picture(u"frmOSOrcaConsulta"_s);
    click(window, u"btnPrevisualizar"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmRelaPreVisualiza"_s));
    picture(u"frmRelaPreVisualiza_orcamento"_s);
    close(form(u"frmRelaPreVisualiza"_s));
    close(window);
    done(u"orçamento localizado e pré-visualizado"_s);
}

void Orcamentos::orcamentoAlterado()
{
    Boxes boxes;
    click(query(), u"btnOSAltera"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSOrcaAltera"_s));
    auto *window = form(u"frmOSOrcaAltera"_s);
    support::key(window, u"txtCodOrcamento"_s, Qt::Key_Tab);
    QCOMPARE(support::text(window, u"txtNome"_s), u"ANA PAULA DE SOUZA"_s);
    addItem(u"1"_s, u"filtro de óleo"_s, u"35"_s, u"frmOSOrcaAltera"_s);
    QCOMPARE(worth(u"Orcamento"_s, u"1"_s), u"625,00"_s);
    picture(u"frmOSOrcaAltera"_s);
    confirmed(window, boxes, u"btnIncluir"_s, u"Confirma Alteração"_s);
    close(window);
    done(u"orçamento alterado: o item novo gravado na hora"_s);
}

/// An estimate holds no vehicle: the clerk still tells which one it is.
void Orcamentos::orcamentoViraOrdem()
{
    Boxes boxes;
    click(query(), u"btnOSNovo"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSAbre"_s));
    auto *window = form(u"frmOSAbre"_s);
    QCOMPARE(support::text(window, u"lblTotal"_s), u"625,00"_s);
    QCOMPARE(cadastro::rowsOf(window).size(), 3U);
    type(window, u"txtCodVeiculo"_s, plate);
    picture(u"frmOSAbre_orcamento"_s);
    const QString code = includeOrder(boxes);
    QCOMPARE(worth(u"OrdemServico"_s, code), u"625,00"_s);
    close(window);
    done(u"orçamento transformado na ordem "_s + code);
}

/// The first order is still open.
void Orcamentos::ordemAlterada()
{
    Boxes boxes;
    auto *window = choose(u"itmOSAltera"_s, u"frmOSAltera"_s);
    type(window, u"txtCodOS"_s, u"1"_s);
    QCOMPARE(support::text(window, u"lblTotal"_s), u"383,00"_s);
    addItem(u"2"_s, u"parafuso da roda"_s, u"8,50"_s, u"frmOSAltera"_s);
    QCOMPARE(worth(u"OrdemServico"_s, u"1"_s), u"400,00"_s);
    type(window, u"txtObs"_s, u"barulho resolvido"_s);
    picture(u"frmOSAltera"_s);
    confirmed(window, boxes, u"btnIncluir"_s, u"Confirma Alteração"_s);
    QCOMPARE(value(u"SELECT Observacao FROM OrdemServico WHERE Codigo = 1"_s), Value(u"BARULHO RESOLVIDO"_s));
    close(window);
    done(u"ordem 0001 alterada: item novo e observação"_s);
}

void Orcamentos::maoDeObraCalculada()
{
    auto *window = choose(u"itmOSAltera"_s, u"frmOSAltera"_s);
    type(window, u"txtCodOS"_s, u"1"_s);
    auto *tabs = support::control<QTabWidget>(window, u"tabItems"_s);
    tabs->setCurrentIndex(tabs->count() - 1);
    type(window, u"txtHorasTrabalhadas"_s, u"5"_s);
    type(window, u"txtCustoPecas"_s, u"207"_s);
    click(window, u"btnCalcular"_s);
    QCOMPARE(support::text(window, u"lblTotalMO"_s), u"93,00"_s);
    QCOMPARE(support::text(window, u"lblCustoTotal"_s), u"566,40"_s);
    picture(u"frmOSAltera_calculo"_s);
    close(window);
    done(u"preço de mão de obra calculado"_s);
}

/// The notes are for one workshop; the menu is asked anew at the start.
void Orcamentos::notaImpressa()
{
    core::GravaINI(u"Config"_s, u"Personalizacao"_s, u"2-2"_s, true);
    Boxes boxes;
    auto *window = ui::Forms::instance().Show(u"frmNota"_s);
    type(window, u"txtOS"_s, u"1"_s);
    click(window, u"btnItemAdd"_s);
    picture(u"frmNota"_s);
    boxes.information(u"A Impressão foi concluída com sucesso"_s);
    click(window, u"Command1"_s);
    QCOMPARE(core::LeINI(u"CONFIG"_s, u"NotaPeca"_s, false), u"000001"_s);
    QVERIFY(paper().filter(u"VENDAS"_s).size() == 1);
    close(window);
    core::GravaINI(u"Config"_s, u"Personalizacao"_s, u"0"_s, true);
    done(u"nota de peças 000001 impressa"_s);
}

} // namespace

Assunto orcamentos()
{
    return std::make_unique<Orcamentos>();
}

} // namespace demonstracao

#include "orcamentos.moc"
