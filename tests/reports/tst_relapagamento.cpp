#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/runtime/runtime.h"
#include "reports/reports.h"
#include "workorders/abertura.h"
#include "workorders/fechamento.h"
#include "workorders/workorders.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace workorders;
using cadastro::columnOf;
using cadastro::rowsOf;

namespace
{

const QString nada;
const QStringList colunasDoPlano{u"Parcela"_s,    u"Descrição"_s, u"Valor"_s,
                                 u"Vencimento"_s, u"Pago"_s,      u"Data Pagto."_s};

} // namespace

/// How a closed order is paid, by what its closing left in the tables of finance.
class TestRelaPagamento : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { programa_.reset(); }

    void showsTheChequesOfTheOrder();
    void showsThePaymentBook();
    void aLongerNumberWithTheSameBeginningIsFoundToo();
    void showsACustomPlanSearchBySearch();
    void everyPendingInstalmentShowsTheFirstOnesDueDay();
    void chequesOfAnotherFormAreFoundTwice();
    void nothingFoundIsARow_data();
    void nothingFoundIsARow();
    void hasNoPaper();
    void opensFromTheOrder_data();
    void opensFromTheOrder();

private:
    QString fecha(FormaPagamento forma);
    ui::Form *abre(int modo, const QString &codigo = u"1"_s);

    std::unique_ptr<support::Program> programa_;
    qint32 maria_ = 0;
    qint32 gol_ = 0;
};

void TestRelaPagamento::initTestCase()
{
    reports::registerForms();
    workorders::registerForms();
}

void TestRelaPagamento::init()
{
    programa_ = std::make_unique<support::Program>();
    maria_ = programa_->customer(u"MARIA"_s);
    gol_ = programa_->vehicle(maria_, u"ABC1D23"_s);
}

/// An order of 100,00, opened and closed; gives its number.
QString TestRelaPagamento::fecha(FormaPagamento forma)
{
    NovaOrdem nova;
    nova.codCliente = QString::number(maria_);
    nova.codVeiculo = QString::number(gol_);
    nova.valor = u"100,00"_s;
    nova.itens = {{u"0000"_s, u"A"_s, u"01"_s, u"ITEM"_s, u"100,00"_s, {}}};

    Fechamento fechamento;
    fechamento.codigo = runtime::Format(AbreOrdem(nova), u"0000");
    fechamento.nomeCliente = u"MARIA"_s;
    fechamento.codCliente = QString::number(maria_);
    fechamento.total = u"100,00"_s;
    fechamento.numerosCheques = {u"900"_s, u"901"_s};
    fechamento.pedeCheque = [](const ParcelaOS &) { return Fechamento::DadosCheque{u"BB"_s, u"1-2"_s, u"77"_s}; };
    PagamentoOS &pagamento = fechamento.pagamento;
    pagamento.forma = forma;
    pagamento.banco = u"ITAÚ"_s;
    pagamento.conta = u"12-3"_s;
    pagamento.numeroCheque = u"900"_s;
    pagamento.valorCheque = u"100,00"_s;
    pagamento.vencimento = u"20/05/2024"_s;
    pagamento.parcelas = {{u"01"_s, u"15/05/2024"_s, u"40,00"_s, u"DINHEIRO À VISTA"_s},
                          {u"02"_s, u"15/06/2024"_s, u"35,00"_s, u"DINHEIRO À PRAZO"_s},
                          {u"03"_s, u"15/07/2024"_s, u"25,00"_s, u"CHEQUE PRÉ"_s}};
    FechaOrdem(fechamento);
    return fechamento.codigo;
}

ui::Form *TestRelaPagamento::abre(int modo, const QString &codigo)
{
    core::CodigoConsulta = runtime::CLng(codigo);
    return papel::abre(modo);
}

void TestRelaPagamento::showsTheChequesOfTheOrder()
{
    fecha(FormaPagamento::ChequePre);
    const QString segunda = fecha(FormaPagamento::Cheques);
    programa_->sql(u"UPDATE Cheques SET Pago = True, Observacoes = 'NO COFRE' WHERE Codigo = 3"_s);
    ui::Form *form = abre(core::modoRelaChequesDaOS, segunda);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Consulta Forma de Pagto O.S. 0002]"_s);
    QCOMPARE(cadastro::titlesOf(form), (QStringList{u"Data"_s, u"Banco"_s, u"Conta"_s, u"Cheque Nº"_s, u"Valor"_s,
                                                    u"Vencimento"_s, u"Pago"_s, u"Observações"_s}));
    const QString hoje = u"15/05/2024"_s;
    QCOMPARE(rowsOf(form),
             (cadastro::Rows{
                 {hoje, u"ITAÚ"_s, u"12-3"_s, u"900"_s, u"40,00"_s, u"15/05/2024"_s, u"Não"_s, nada},
                 {hoje, u"ITAÚ"_s, u"12-3"_s, u"901"_s, u"35,00"_s, u"15/06/2024"_s, u"Sim"_s, u"NO COFRE"_s},
                 {hoje, u"ITAÚ"_s, u"12-3"_s, nada, u"25,00"_s, u"15/07/2024"_s, u"Não"_s, nada},
             }));
}

void TestRelaPagamento::showsThePaymentBook()
{
    fecha(FormaPagamento::Carne);
    const QString segunda = fecha(FormaPagamento::Carne);
    programa_->sql(u"UPDATE ContasReceber SET Pago = True, DataPagto = #5/14/2024# WHERE Codigo = 4"_s);
    ui::Form *form = abre(core::modoRelaCarneDaOS, segunda);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Consulta Forma de Pagto O.S. 0002]"_s);
    QCOMPARE(cadastro::titlesOf(form),
             (QStringList{u"Data"_s, u"Descrição"_s, u"Valor"_s, u"Vencimento"_s, u"Pago"_s, u"Data Pagto."_s}));
    const QString hoje = u"15/05/2024"_s;
    QCOMPARE(rowsOf(form), (cadastro::Rows{
                               {hoje, u"CARNÊ Nº 0002-01"_s, u"40,00"_s, hoje, u"Sim"_s, u"14/05/2024"_s},
                               {hoje, u"CARNÊ Nº 0002-02"_s, u"35,00"_s, u"15/06/2024"_s, u"Não"_s, nada},
                               {hoje, u"CARNÊ Nº 0002-03"_s, u"25,00"_s, u"15/07/2024"_s, u"Não"_s, nada},
                           }));
}

/// The search is by the beginning of the description.
void TestRelaPagamento::aLongerNumberWithTheSameBeginningIsFoundToo()
{
    programa_->sql(u"INSERT INTO ContasReceber (Descricao, Valor) VALUES ('CARNÊ Nº 1000-01', 1)"_s);
    programa_->sql(u"INSERT INTO ContasReceber (Descricao, Valor) VALUES ('CARNÊ Nº 10001-01', 2)"_s);
    QCOMPARE(columnOf(abre(core::modoRelaCarneDaOS, u"1000"_s), 2), (QStringList{u"1,00"_s, u"2,00"_s}));
}

void TestRelaPagamento::showsACustomPlanSearchBySearch()
{
    fecha(FormaPagamento::Personalizado);
    const QString segunda = fecha(FormaPagamento::Personalizado);
    programa_->sql(u"UPDATE Fiados SET Pago = True WHERE CodOs = 2"_s);
    ui::Form *form = abre(core::modoRelaPlanoDaOS, segunda);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Consulta Forma de Pagto O.S. 0002]"_s);
    QCOMPARE(cadastro::titlesOf(form), colunasDoPlano);
    QCOMPARE(rowsOf(form),
             (cadastro::Rows{
                 {u"01"_s, u"PAGAMENTO À VISTA"_s, u"40,00"_s, u"15/05/2024"_s, u"Sim"_s, u"15/05/2024"_s},
                 {u"02"_s, u"O.S. PENDENTE: MARIA - Nº 0002-02"_s, u"35,00"_s, u"15/06/2024"_s, u"Não"_s, nada},
                 {u"03"_s, u"CHEQUE: MARIA - CÓD 0002/0002-03"_s, u"25,00"_s, u"15/07/2024"_s, u"Não"_s, nada},
                 {u"02"_s, u"DINHEIRO À PRAZO"_s, u"35,00"_s, u"15/06/2024"_s, u"Sim"_s, nada},
             }));
}

void TestRelaPagamento::everyPendingInstalmentShowsTheFirstOnesDueDay()
{
    for (const QString &valores : {u"1, #6/1/2024#"_s, u"2, #7/1/2024#"_s}) {
        programa_->sql(u"INSERT INTO Fiados (CodOs, Valor, Vencimento, Pago) VALUES (7, %1, False)"_s.arg(valores));
    }
    for (const QString &valores : {u"'ORDEM SERVIÇO Nº 0007 PARCELA 01', 1"_s,
                                   u"'ORDEM SERVIÇO Nº 0007 PARCELA 02', 2"_s, u"'ORDEM SERVIÇO Nº 0007', 3"_s}) {
        programa_->sql(u"INSERT INTO ContaFiado (Descricao, Entrada) VALUES (%1)"_s.arg(valores));
    }
    QCOMPARE(rowsOf(abre(core::modoRelaPlanoDaOS, u"7"_s)),
             (cadastro::Rows{
                 {u"01"_s, u"DINHEIRO À PRAZO"_s, u"1,00"_s, u"01/06/2024"_s, u"Não"_s, nada},
                 {u"02"_s, u"DINHEIRO À PRAZO"_s, u"2,00"_s, u"01/06/2024"_s, u"Não"_s, nada},
             }));
}

/// An order that was closed twice: its cheques are met by the search for them and by the one for any account.
void TestRelaPagamento::chequesOfAnotherFormAreFoundTwice()
{
    fecha(FormaPagamento::ChequePre);
    QCOMPARE(columnOf(abre(core::modoRelaPlanoDaOS), 1),
             (QStringList{u"CHEQUE CÓD 0001/0001-00"_s, u"CHEQUE CÓD 0001/0001-00"_s}));
}

void TestRelaPagamento::nothingFoundIsARow_data()
{
    QTest::addColumn<int>("modo");
    QTest::newRow("cheques") << int(core::modoRelaChequesDaOS);
    QTest::newRow("payment book") << int(core::modoRelaCarneDaOS);
    QTest::newRow("custom plan") << int(core::modoRelaPlanoDaOS);
}

void TestRelaPagamento::nothingFoundIsARow()
{
    QFETCH(int, modo);
    ui::Form *form = abre(modo);
    QCOMPARE(cadastro::list(form)->count(), 1);
    QCOMPARE(rowsOf(form).front().mid(0, 2), (QStringList{nada, u"Registro Não Localizado"_s}));
}

void TestRelaPagamento::hasNoPaper()
{
    for (const int modo :
         {int(core::modoRelaChequesDaOS), int(core::modoRelaCarneDaOS), int(core::modoRelaPlanoDaOS)}) {
        ui::Form *form = abre(modo);
        QVERIFY(support::controlOf(form, u"btnPrint"_s)->isHidden());
        QVERIFY(support::controlOf(form, u"btnPrevisualizar"_s)->isHidden());
        QVERIFY(!support::controlOf(form, u"btnVoltar"_s)->isHidden());
        form->Unload();
    }
}

void TestRelaPagamento::opensFromTheOrder_data()
{
    QTest::addColumn<int>("forma");
    QTest::addColumn<int>("modo");
    QTest::addColumn<int>("linhas");
    QTest::newRow("post-dated cheque") << int(FormaPagamento::ChequePre) << int(core::modoRelaChequesDaOS) << 1;
    QTest::newRow("cheques") << int(FormaPagamento::Cheques) << int(core::modoRelaChequesDaOS) << 3;
    QTest::newRow("payment book") << int(FormaPagamento::Carne) << int(core::modoRelaCarneDaOS) << 3;
    QTest::newRow("custom plan") << int(FormaPagamento::Personalizado) << int(core::modoRelaPlanoDaOS) << 4;
}

void TestRelaPagamento::opensFromTheOrder()
{
    QFETCH(int, forma);
    QFETCH(int, modo);
    QFETCH(int, linhas);
    fecha(FormaPagamento::Carne);
    fecha(FormaPagamento(forma));
    core::ModoChamada = core::modoNormal;
    ui::Form *consulta = support::show(u"frmOSConsulta"_s);
    cadastro::choose(consulta, u"cboOS"_s, 2);
    cadastro::list(consulta)->setFocus();
    cadastro::clickRow(consulta, 1);
    support::click(consulta, u"btnPagtoInfo"_s);
    QCOMPARE(core::ModoChamada, qint16(modo));
    QCOMPARE(papel::relatorio()->windowTitle(), u"Tarvelo - [Consulta Forma de Pagto O.S. 0002]"_s);
    QCOMPARE(cadastro::list(papel::relatorio())->count(), linhas);
}

TARVELO_TEST_MAIN(TestRelaPagamento)
#include "tst_relapagamento.moc"
