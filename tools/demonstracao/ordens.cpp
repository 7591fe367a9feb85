#include "core/config.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/modal.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/pagamento.h"

#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;
using support::Boxes;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

/// One of the six ways to pay, and what is told when it went well.
struct Forma {
    QString step;
    Pagamento payment;
};

class Ordens : public QObject
{
    Q_OBJECT

private slots:
    void ordemParaPlacaDesconhecida();
    void umaOrdemParaCadaFormaDePagamento();
    void descontoEImpressao();
    void preVisualizacao();

private:
    static void quickRegister();
    static QList<Forma> formas();
};

void Ordens::quickRegister()
{
    auto *fast = form(u"frmCadaFast"_s);
    cadastro::fill(fast, {{u"txtNome"_s, u"joão da silva"_s},
                          {u"txtEndereco"_s, u"rua das flores"_s},
                          {u"txtNumero"_s, u"120"_s},
                          {u"txtFone1"_s, u"1155551234"_s},
                          {u"cboMarca"_s, u"gol 1.0"_s},
                          {u"txtAno"_s, u"20192020"_s},
                          {u"txtCor"_s, u"prata"_s}});
    picture(u"frmCadaFast"_s, fast);
    click(fast, u"btnIncluir"_s);
}

void Ordens::ordemParaPlacaDesconhecida()
{
    Boxes boxes;
    auto *window = choose(u"itmOSAbrir"_s, u"frmOSAbre"_s);
    boxes.question(u"Código/Placa do Veículo não localizado\nDeseja cadastrar agora?"_s, true)
        .question(u"Confirma a Inclusão"_s, true);
    support::whenShown(u"frmCadaFast"_s, [] { quickRegister(); });
    type(window, u"txtCodVeiculo"_s, plate.toLower());
    support::failNotShown();
    const auto vehicle = value(u"SELECT Codigo FROM Veiculos WHERE Placas = '"_s + plate + u"'"_s);
    QTRY_COMPARE(support::text(window, u"txtCodVeiculo"_s), QString::number(std::get<qint32>(vehicle)));

    type(window, u"txtKm"_s, u"45200"_s);
    QCOMPARE(support::text(window, u"lblNome"_s), u"JOÃO DA SILVA"_s);
    type(window, u"txtObs"_s, u"barulho na roda dianteira"_s);
    type(window, u"txtMecanico"_s, u"pedro"_s);
    addItem(u"2"_s, u"rolamento dianteiro"_s, u"95,50"_s);
    addItem(u"1"_s, u"mão de obra"_s, u"180"_s);
    addItem(u"0,5"_s, u"graxa"_s, u"24"_s);
    QCOMPARE(support::text(window, u"lblTotal"_s), u"383,00"_s);
    picture(u"frmOSAbre"_s);

    QCOMPARE(includeOrder(boxes), u"0001"_s);
    done(u"ordem 0001 aberta para uma placa nova, com o cliente"_s);
}

QList<Forma> Ordens::formas()
{
    const auto inAWeek = runtime::Format(runtime::DateAdd(u"d", 7, runtime::Today()), u"ddmmyyyy");
    const auto cash = [](QWidget *window) { type(window, u"txtValor_0"_s, u"400"_s); };
    const auto cheque = [inAWeek](QWidget *window) {
        type(window, u"txtBanco_1"_s, u"banco do brasil"_s);
        type(window, u"txtConta_1"_s, u"12345-6"_s);
        type(window, u"txtNumCheque"_s, u"000123"_s);
        type(window, u"txtData_1"_s, inAWeek);
    };
    const auto book = [](QWidget *window) {
        click(window, u"btnParcelasAdd_2"_s);
        click(window, u"btnParcelasAdd_2"_s);
    };
    const auto cheques = [](QWidget *window) {
        click(window, u"btnParcelasAdd_3"_s);
        type(window, u"txtBanco_3"_s, u"itaú"_s);
        type(window, u"txtConta_3"_s, u"998-1"_s);
    };
    const auto credit = [inAWeek](QWidget *window) { type(window, u"txtData_4"_s, inAWeek); };
    const auto plan = [](QWidget *window) {
        type(window, u"txtParcela_5"_s, u"1"_s);
        type(window, u"txtValor_5"_s, u"400"_s);
        click(window, u"btnItemAdd"_s);
    };
    return {{u"paga à vista"_s, {.tab = 0, .fill = cash}},
            {u"paga com cheque pré"_s, {.tab = 1, .fill = cheque}},
            {u"parcelada no carnê"_s, {.tab = 2, .fill = book}},
            {u"parcelada em dois cheques"_s, {.tab = 3, .fill = cheques, .chequeNumbers = {u"501"_s, u"502"_s}}},
            {u"fiada na conta do cliente"_s, {.tab = 4, .fill = credit}},
            {u"paga em plano personalizado"_s, {.tab = 5, .fill = plan}}};
}

void Ordens::umaOrdemParaCadaFormaDePagamento()
{
    Boxes boxes;
    for (const Forma &forma : formas()) {
        closeOrder(boxes, openOrder(boxes, plate), forma.payment);
        done(forma.step);
    }
}

void Ordens::descontoEImpressao()
{
    core::GravaINI(u"Config"_s, u"Desconto"_s, u"0,10"_s, true);
    Boxes boxes;
    const auto discount = [&](QWidget *window) {
        boxes.exclamation(u"Desconto máximo é de R$ 40,00"_s);
        type(window, u"txtDesconto"_s, u"50"_s);
        type(window, u"txtDesconto"_s, u"40"_s);
        QCOMPARE(support::text(window, u"lblValor"_s), u"360,00"_s);
        type(window, u"txtValor_0"_s, u"360"_s);
    };
    closeOrder(boxes, openOrder(boxes, plate), {.tab = 0, .fill = discount, .print = true, .picture = u"desconto"_s});
    QVERIFY(!printer::printer().lastDocument().empty());
    QVERIFY(!results().entryList({u"*.pdf"_s}).isEmpty());
    done(u"paga com desconto e impressa"_s);
}

void Ordens::preVisualizacao()
{
    core::GravaINI(u"Config"_s, u"LayoutOS"_s, u"2"_s, true);
    auto *query = choose(u"itmOSConsultar"_s, u"frmOSConsulta"_s);
    support::control<QComboBox>(query, u"cboOS"_s)->setCurrentIndex(2);
    showOrder(cadastro::columnOf(query).last());
    click(query, u"btnPrevisualizar"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmRelaPreVisualiza"_s));
    picture(u"frmRelaPreVisualiza"_s);
    close(form(u"frmRelaPreVisualiza"_s));
    close(query);
    done(u"ordem pré-visualizada"_s);
}

} // namespace

Assunto ordens()
{
    return std::make_unique<Ordens>();
}

} // namespace demonstracao

#include "ordens.moc"
