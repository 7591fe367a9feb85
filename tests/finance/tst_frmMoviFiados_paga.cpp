#include "tests/finance/fiados.h"

#include "core/financas.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/ui/application.h"
#include "platform/ui/listview.h"

using namespace Qt::StringLiterals;
using cadastro::clickRow;
using cadastro::columnOf;
using cadastro::errorBox;
using cadastro::Rows;
using cadastro::rowsOf;
using fiados::nulo;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

namespace
{

const QString janela = u"frmMoviFiados"_s;
const QString pergunta = u"Lançar pagamento da O.S. pendente no Livro Caixa"_s;
const Rows semResultado{{u""_s, u""_s, u"Registro Não Localizado"_s, u" "_s, u""_s, u""_s, u""_s}};

constexpr int todas = 2; ///< of `cboOS`

} // namespace

/// Pending orders are settled by the key P, and the account of a customer opens from its row.
class TstFrmMoviFiadosPaga : public fiados::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void theKeySettlesAndPosts();
    void onNoNothingIsPosted();
    void theKeyTakesItBackAndPostsAgain();
    void theKeyIsForAnyOperator();
    void theAccountsStayAsTheyAre();
    void aLargeValueIsPostedAsItIsShown();
    void aRowWithoutAnOrderIsNotSettled();
    void theRowWithoutResultIsNotSettled();
    void withNothingSelectedNothingIsSettled();
    void anOrderThatIsGoneIsNotSettled();
    void aRowThatIsGoneLeavesItsOrderSettled();
    void anEmptyCashBookIsARunTimeError();
    void theKeyActsOnTheRowOfASortedList();
    void theRowStaysChosen();
    void aSearchStaysWhatIsShown();

    void theAccountOfTheCustomerOpens();
    void anAccountThatIsOpenShowsTheOtherCustomer();
    void theAccountNeedsAChosenRow();
    void theAccountOfARowThatIsGoneStaysShut();

private:
    void abre() { Case::abre(janela); }
    void escolheSituacao(int situacao) { cadastro::choose(janela_, u"cboOS"_s, situacao); }
    void pesquisa(int campo, const QString &texto);
    void saldoInicial();
    void teclaP(int linha);
    QStringList pagos() const;
    Rows caixa() const;
    Rows pendentes() const { return program_->rows(u"SELECT * FROM Fiados ORDER BY Codigo"_s); }
};

void TstFrmMoviFiadosPaga::pesquisa(int campo, const QString &texto)
{
    cadastro::choose(janela_, u"cboPesquisa"_s, campo);
    type(janela_, u"txtTexto"_s, texto);
    click(janela_, u"btnPesquisar"_s);
}

void TstFrmMoviFiadosPaga::saldoInicial()
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = u"10,00"_s});
}

void TstFrmMoviFiadosPaga::teclaP(int linha)
{
    clickRow(janela_, linha);
    key(janela_, u"Lista"_s, Qt::Key_P);
}

/// Whether each order and each pending row is paid.
QStringList TstFrmMoviFiadosPaga::pagos() const
{
    QStringList todos;
    for (const QString &tabela : {u"OrdemServico"_s, u"Fiados"_s}) {
        for (const QStringList &linha : program_->rows(u"SELECT Pago FROM "_s + tabela + u" ORDER BY Codigo"_s)) {
            todos << linha.front();
        }
    }
    return todos;
}

Rows TstFrmMoviFiadosPaga::caixa() const
{
    return program_->rows(u"SELECT Data, Descricao, Entrada, Saida, Saldo, CodOs FROM Caixa ORDER BY Codigo"_s);
}

// --- the key P

void TstFrmMoviFiadosPaga::theKeySettlesAndPosts()
{
    tresSituacoes();
    saldoInicial();
    abre();
    boxes_->question(pergunta, true);
    teclaP(1);
    QCOMPARE(pagos(), (QStringList{u"False"_s, u"False"_s, u"True"_s, u"False"_s, u"True"_s, u"True"_s}));
    QCOMPARE(caixa().size(), 2U);
    QCOMPARE(caixa().back(), (QStringList{u"15/05/2024 00:00:00"_s, u"O.S. 0003"_s, u"100"_s, nulo, u"110"_s, nulo}));
    QCOMPARE(columnOf(janela_, 2), QStringList{u"ANA"_s});
    QCOMPARE(pendentes().back(), (QStringList{u"3"_s, u"3"_s, u"3"_s, u"10/05/2024 00:00:00"_s, u"100"_s,
                                              u"20/06/2024 00:00:00"_s, u"True"_s}));
}

void TstFrmMoviFiadosPaga::onNoNothingIsPosted()
{
    tresSituacoes();
    abre();
    boxes_->question(pergunta, false);
    teclaP(0);
    QCOMPARE(pagos(), (QStringList{u"True"_s, u"False"_s, u"False"_s, u"True"_s, u"True"_s, u"False"_s}));
    QVERIFY(caixa().empty());
    QCOMPARE(columnOf(janela_, 2), QStringList{u"CARLA"_s});
}

void TstFrmMoviFiadosPaga::theKeyTakesItBackAndPostsAgain()
{
    tresSituacoes();
    saldoInicial();
    abre();
    escolheSituacao(todas);
    boxes_->question(pergunta, true).question(pergunta, true);
    teclaP(0);
    QCOMPARE(columnOf(janela_, 6).front(), u"Sim"_s);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(columnOf(janela_, 6).front(), u"Não"_s);
    QCOMPARE(pagos(), (QStringList{u"False"_s, u"False"_s, u"False"_s, u"False"_s, u"True"_s, u"False"_s}));
    QCOMPARE(program_->rows(u"SELECT Descricao, Entrada, Saldo FROM Caixa ORDER BY Codigo"_s),
             (Rows{{u"ABERTURA"_s, u"10"_s, u"10"_s},
                   {u"O.S. 0001"_s, u"100"_s, u"110"_s},
                   {u"O.S. 0001"_s, u"100"_s, u"210"_s}}));
}

void TstFrmMoviFiadosPaga::theKeyIsForAnyOperator()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    core::CodOperador = 2;
    tresSituacoes();
    abre();
    escolheSituacao(todas);
    boxes_->question(pergunta, false).question(pergunta, false);
    teclaP(0);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(pagos().front(), u"False"_s);
}

void TstFrmMoviFiadosPaga::theAccountsStayAsTheyAre()
{
    tresSituacoes();
    saldoInicial();
    core::LancaNoRazao(core::razaoContaFiado,
                       {.dono = u"1"_s, .descricao = u"ORDEM SERVIÇO Nº 0001"_s, .valor = u"100,00"_s});
    core::IncluiConta(core::TabelaContas::Receber, {.descricao = u"O.S. PENDENTE: ANA"_s,
                                                    .valor = u"100,00"_s,
                                                    .vencimento = u"20/06/2024"_s,
                                                    .codOs = u"0001"_s});
    const Rows conta = program_->rows(u"SELECT * FROM ContaFiado"_s);
    const Rows receber = program_->rows(u"SELECT * FROM ContasReceber"_s);
    abre();
    boxes_->question(pergunta, true);
    teclaP(0);
    QCOMPARE(caixa().size(), 2U);
    QCOMPARE(program_->rows(u"SELECT * FROM ContaFiado"_s), conta);
    QCOMPARE(program_->rows(u"SELECT * FROM ContasReceber"_s), receber);
}

void TstFrmMoviFiadosPaga::aLargeValueIsPostedAsItIsShown()
{
    const qint32 ana = program_->customer(u"ANA"_s);
    pendente(ana, QString::number(ordem()), u"1234567.89"_s);
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = u"0,10"_s});
    abre();
    QCOMPARE(columnOf(janela_, 4), QStringList{u"1.234.568,00"_s});
    boxes_->question(pergunta, true);
    teclaP(0);
    QCOMPARE(support::exact(std::get<float>(program_->value(u"SELECT Entrada FROM Caixa WHERE Codigo = 2"_s))),
             u"1234568"_s);
    QCOMPARE(support::exact(std::get<float>(program_->value(u"SELECT Saldo FROM Caixa WHERE Codigo = 2"_s))),
             support::exact(1234568.0F + 0.1F));
}

void TstFrmMoviFiadosPaga::aRowWithoutAnOrderIsNotSettled()
{
    const qint32 ana = program_->customer(u"ANA"_s);
    ordem();
    pendente(ana, u"0"_s);
    abre();
    teclaP(0);
    QCOMPARE(pagos(), (QStringList{u"False"_s, u"False"_s}));
}

void TstFrmMoviFiadosPaga::theRowWithoutResultIsNotSettled()
{
    abre();
    teclaP(0);
    QCOMPARE(rowsOf(janela_), semResultado);
    QVERIFY(!ui::Application::ended());
}

void TstFrmMoviFiadosPaga::withNothingSelectedNothingIsSettled()
{
    tresSituacoes();
    abre();
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(pagos(), (QStringList{u"False"_s, u"False"_s, u"False"_s, u"False"_s, u"True"_s, u"False"_s}));
}

void TstFrmMoviFiadosPaga::anOrderThatIsGoneIsNotSettled()
{
    tresSituacoes();
    program_->sql(u"DELETE * FROM OrdemServico WHERE Codigo = 1"_s);
    abre();
    teclaP(0);
    QCOMPARE(pagos(), (QStringList{u"False"_s, u"False"_s, u"False"_s, u"True"_s, u"False"_s}));
}

void TstFrmMoviFiadosPaga::aRowThatIsGoneLeavesItsOrderSettled()
{
    tresSituacoes();
    abre();
    program_->sql(u"DELETE * FROM Fiados WHERE Codigo = 1"_s);
    teclaP(0);
    QCOMPARE(pagos(), (QStringList{u"True"_s, u"False"_s, u"False"_s, u"True"_s, u"False"_s}));
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"ANA"_s, u"CARLA"_s})); // it stops there
}

void TstFrmMoviFiadosPaga::anEmptyCashBookIsARunTimeError()
{
    tresSituacoes();
    abre();
    boxes_->question(pergunta, true).title({}).critical(errorBox(13));
    teclaP(0);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QVERIFY(caixa().empty());
    QCOMPARE(pagos(), (QStringList{u"True"_s, u"False"_s, u"False"_s, u"True"_s, u"True"_s, u"False"_s}));
}

void TstFrmMoviFiadosPaga::theKeyActsOnTheRowOfASortedList()
{
    tresSituacoes();
    abre();
    cadastro::clickHeader(janela_, 2);
    cadastro::clickHeader(janela_, 2);
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"CARLA"_s, u"ANA"_s}));
    boxes_->question(pergunta, false);
    teclaP(0);
    QCOMPARE(pagos(), (QStringList{u"False"_s, u"False"_s, u"True"_s, u"False"_s, u"True"_s, u"True"_s}));
}

void TstFrmMoviFiadosPaga::theRowStaysChosen()
{
    tresSituacoes();
    abre();
    escolheSituacao(todas);
    boxes_->question(pergunta, false);
    teclaP(2);
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 2);
    QCOMPARE(cadastro::focusOf(janela_), u"Lista"_s);
}

void TstFrmMoviFiadosPaga::aSearchStaysWhatIsShown()
{
    tresSituacoes();
    pendente(1, u"1"_s);
    abre();
    pesquisa(0, u"ANA"_s);
    QCOMPARE(columnOf(janela_), (QStringList{u"0001"_s, u"0004"_s}));
    boxes_->question(pergunta, false);
    teclaP(0);
    QCOMPARE(columnOf(janela_), QStringList{u"0004"_s});
}

// --- the account

void TstFrmMoviFiadosPaga::theAccountOfTheCustomerOpens()
{
    tresSituacoes();
    abre();
    clickRow(janela_, 1);
    core::ModoChamada = 11;
    click(janela_, u"btnConta"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmMoviFiadosConta"_s));
    auto *conta = ui::Forms::instance().find(u"frmMoviFiadosConta"_s);
    QCOMPARE(core::ModoChamada, qint16{0});
    QCOMPARE(core::CodigoConsulta, 3);
    QCOMPARE(text(conta, u"lblCodigo"_s), u"0003"_s);
    QCOMPARE(text(conta, u"lblNome"_s), u"CARLA"_s);
}

void TstFrmMoviFiadosPaga::anAccountThatIsOpenShowsTheOtherCustomer()
{
    tresSituacoes();
    abre();
    clickRow(janela_, 1);
    click(janela_, u"btnConta"_s);
    clickRow(janela_, 0);
    click(janela_, u"btnConta"_s);
    QCOMPARE(text(ui::Forms::instance().find(u"frmMoviFiadosConta"_s), u"lblCodigo"_s), u"0001"_s);
}

void TstFrmMoviFiadosPaga::theAccountNeedsAChosenRow()
{
    tresSituacoes();
    abre();
    auto *botao = support::controlOf(janela_, u"btnConta"_s);
    QVERIFY(!botao->isEnabled());
    QVERIFY(botao->toolTip().contains(u"Escolha uma ordem na lista"));
    clickRow(janela_, 0);
    QVERIFY(botao->isEnabled());
    click(janela_, u"btnTodos"_s);
    QVERIFY(!botao->isEnabled());
}

void TstFrmMoviFiadosPaga::theAccountOfARowThatIsGoneStaysShut()
{
    tresSituacoes();
    abre();
    clickRow(janela_, 0);
    program_->sql(u"DELETE * FROM Fiados WHERE Codigo = 1"_s);
    click(janela_, u"btnConta"_s);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmMoviFiadosConta"_s));
    QVERIFY(!ui::Application::ended());
}

TARVELO_TEST_MAIN(TstFrmMoviFiadosPaga)
#include "tst_frmMoviFiados_paga.moc"
