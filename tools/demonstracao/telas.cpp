#include "core/config.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "estimates/orcamento.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "support/modal.h"
#include "support/program.h"
#include "tools/demonstracao/apoio.h"
#include "tools/demonstracao/assuntos.h"
#include "tools/demonstracao/pagamento.h"
#include "tools/demonstracao/programa.h"
#include "workorders/abertura.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using support::click;
using support::type;

namespace demonstracao
{

namespace
{

/// A register and the item that opens it.
struct Tela {
    QString item;
    QString window;
};

/// The first record of every register, with texts as long as a clerk types them.
const QStringList longTexts = {
    u"UPDATE Clientes SET Nome = 'MARIA APARECIDA DE OLIVEIRA CAVALCANTI ALBUQUERQUE E SILVA', "
    "Endereco = 'AVENIDA PREFEITO EURICO PEREIRA DOS SANTOS', Numero = 12850, Complemento = 'BLOCO B APARTAMENTO "
    "1204', "
    "Bairro = 'JARDIM NOSSA SENHORA DAS GRAÇAS', Cidade = 'SÃO JOSÉ DO RIO PRETO', Estado = 'SP', CEP = '15080-130', "
    "Fone1 = '(17) 3232-8888', Fone2 = '(17) 3434-8888', Celular = '(17)98888-8888', RG = '28.888.888-8', "
    "CPF = '888.888.888-88', DataNascimento = #12/28/1968#, LimiteCredito = 12888.88, "
    "Email = 'maria.aparecida.albuquerque@transportadora.com.br', PontoReferencia = 'EM FRENTE AO MERCADO MUNICIPAL', "
    "Observacoes = 'CLIENTE DESDE 1998, PREFERE SER AVISADA POR TELEFONE DEPOIS DAS 18 HORAS' WHERE Codigo = 1"_s,
    u"UPDATE Veiculos SET CodCliente = 1, MarcaModelo = 'VOLKSWAGEN SPACEFOX HIGHLINE 1.6 TOTAL FLEX I-MOTION', "
    "Ano = '2018/2018', Cor = 'CINZA QUARTZO METÁLICO', Placas = 'MWO-8888', Combustivel = 'ÁLCOOL E GASOLINA', "
    "Chassi = '9BWPB45Z8E4088888', Observacoes = 'RODA TRASEIRA ESQUERDA TROCADA EM 2020' WHERE Codigo = 1"_s,
    u"UPDATE Pecas SET Nome = 'KIT EMBREAGEM COMPLETO COM ROLAMENTO E ATUADOR', MarcaModelo = 'SPACEFOX HIGHLINE 1.6', "
    "ValorCusto = 10888.88, ValorVenda = 12888.88, CodExterno = '7898888888888-A', EstoqueMinimo = 1288, "
    "ClassFiscal = '8708.93.00-88' WHERE Codigo = 1"_s,
    u"UPDATE Fornecedores SET Nome = 'DISTRIBUIDORA NACIONAL DE AUTOPEÇAS E ACESSÓRIOS LTDA', "
    "Contato = 'LUIZ HENRIQUE DE VASCONCELOS', Endereco = 'RODOVIA WASHINGTON LUÍS KM 438', Numero = 28888, "
    "Bairro = 'DISTRITO INDUSTRIAL WALDEMAR VERDI', Cidade = 'SÃO JOSÉ DO RIO PRETO', Estado = 'SP', "
    "CEP = '15080-130', Fone1 = '(17) 3232-8888', Fone2 = '(17) 3434-8888', Celular = '(17)98888-8888', "
    "CNPJ = '88888888888888', Email = 'vendas.balcao@distribuidoranacional.com.br' WHERE Codigo = 1"_s,
};

class Telas : public QObject
{
    Q_OBJECT

public:
    explicit Telas(QString folder) : folder_(std::move(folder)) {}

private slots:
    void entra();
    void cadastros();
    void estoque();
    void livroCaixa();
    void cheques();
    void contas();
    void fiados();
    void abertura();
    void cadastroRapido();
    void consulta();
    void pagamento();
    void alteracao();
    void orcamentos();
    void nota();
    void entradas();
    void origens();
    void balanco();
    void relatorios();
    void preVisualizacao();
    void avisos();
    void configuracoes();
    void manual();
    void sobre();
    void operadores();

private:
    static QString movedPart();
    static void showPeriod(ui::Form *window, int daysBefore, int daysBehind, const QString &list = u"Lista"_s);
    static void settling();
    static void show(ui::Form *window, const Fields &fields);
    static void newOrder();
    static QString newEstimate();
    static ui::Form *newestOrder(qint16 mode);
    static void payments();
    static void report(const QString &name, const QString &item, const QString &selection = {});

    QString folder_;
    static inline QString order_;
};

/// Puts texts into controls as the window itself does.
void Telas::show(ui::Form *window, const Fields &fields)
{
    for (const auto &[name, text] : fields) {
        ui::setTextOf(support::controlOf(window, name), text);
    }
}

/// An open order of the longest customer.
void Telas::newOrder()
{
    const QString dear = u"51.440,33"_s;
    workorders::NovaOrdem order{
        .codCliente = u"1"_s,
        .codVeiculo = u"1"_s,
        .km = u"188.888 KM"_s,
        .observacao = u"BARULHO NA RODA DIANTEIRA AO PASSAR EM LOMBADA, FREIO PUXA PARA A DIREITA"_s,
        .valor = u"1.234.567,89"_s,
        .servicos = u"TROCA DO KIT DE EMBREAGEM\nALINHAMENTO E BALANCEAMENTO\nREVISÃO DOS FREIOS"_s,
        .mecanico = u"FRANCISCO DAS CHAGAS DE SOUZA"_s,
        .itens = {}};
    for (const auto *kind : {u"P", u"S", u"T", u"K"}) {
        const auto type = QString::fromUtf16(kind);
        order.itens.push_back({u"1"_s, type, u"12"_s, u"KIT EMBREAGEM COMPLETO COM ROLAMENTO"_s, dear, {}});
        order.itens.push_back({u"0"_s, type, u"0,5"_s, u"BELA VISTA"_s, u"8,88"_s, {}});
    }
    order_ = runtime::Format(workorders::AbreOrdem(order), u"0000");
}

void Telas::entra()
{
    useFolder(folder_);
    start(operadorDaOficina(), [] { picture(u"frmSplash"_s, form(u"frmSplash"_s)); });
    for (const auto &statement : longTexts) {
        core::DBDados->Execute(statement);
    }
    newOrder();
    picture(u"frmMDI"_s);
}

void Telas::cadastros()
{
    const QList<Tela> telas = {{u"itmCadaClie"_s, u"frmCadaCliente"_s},
                               {u"itmCadaVeiculos"_s, u"frmCadaVeiculos"_s},
                               {u"itmCadaPecas"_s, u"frmCadaPecas"_s},
                               {u"itmCadaFornecedores"_s, u"frmCadaFornecedor"_s}};
    for (const Tela &tela : telas) {
        auto *window = choose(tela.item, tela.window);
        picture(tela.window + u"_vazio"_s);
        click(window, u"btnTodos"_s);
        const int row = int(cadastro::columnOf(window, 0).indexOf(u"0001"_s));
        cadastro::list(window)->ensureVisible(row);
        cadastro::clickRow(window, row);
        QVERIFY(!support::text(window, u"lblCodigo"_s).isEmpty());
        picture(tela.window);
        close(window);
    }
}

/// The part with the most movements: its ledger has something to show.
QString Telas::movedPart()
{
    const auto parts = core::DBDados->OpenRecordset(
        u"SELECT CodPeca, Count(Codigo) AS Linhas FROM Estoque GROUP BY CodPeca ORDER BY Count(Codigo) DESC"_s);
    return QString::number(std::get<qint32>(parts.value(0)));
}

void Telas::estoque()
{
    auto *window = choose(u"itmMoviEstoque"_s, u"frmMoviEstoque"_s);
    type(window, u"txtCodPeca"_s, movedPart());
    const auto twoYearsAgo = runtime::DateAdd(u"yyyy", -2, runtime::Today());
    type(window, u"txtDataInicio"_s, runtime::Format(twoYearsAgo, u"dd/mm/yyyy"));
    click(window, u"btnPreenche"_s);
    QVERIFY(cadastro::list(window)->count() > 1);
    cadastro::clickRow(window, 1);
    cadastro::fill(window, {{u"txtData"_s, u"28/12/2024"_s},
                            {u"txtDescricao"_s, u"contagem do balcão e do depósito"_s},
                            {u"txtValor"_s, u"1288,88"_s}});
    picture(u"frmMoviEstoque"_s);
    close(window);
}

/// The rows of a period around today.
void Telas::showPeriod(ui::Form *window, int daysBefore, int daysBehind, const QString &list)
{
    const auto day = [](int days) {
        return runtime::Format(runtime::DateAdd(u"d", days, runtime::Today()), u"ddmmyyyy");
    };
    type(window, u"txtDataInicio"_s, day(-daysBefore));
    type(window, u"txtDataFim"_s, day(daysBehind));
    click(window, u"btnPreenche"_s);
    QVERIFY(cadastro::list(window, list)->count() > 1);
}

void Telas::livroCaixa()
{
    auto *window = choose(u"itmMoviCaixa"_s, u"frmMoviCaixa"_s);
    picture(u"frmMoviCaixa_vazio"_s);
    showPeriod(window, 60, 0);
    cadastro::clickRow(window, 1);
    cadastro::fill(window, {{u"txtData"_s, u"28/12/2028"_s},
                            {u"txtDescricao"_s, u"aluguel do galpão da rua das acácias"_s},
                            {u"txtValor"_s, u"1.234.567,89"_s}});
    picture(u"frmMoviCaixa"_s);
    click(window, u"btnAlterar"_s);
    picture(u"frmMoviCaixa_altera"_s);
    click(window, u"btnVoltar"_s);
    close(window);

    window = choose(u"itmRelaLivroCaixa"_s, u"frmMoviCaixa"_s);
    showPeriod(window, 60, 0);
    picture(u"frmMoviCaixa_relatorio"_s);
    click(window, u"btnPrevisualizar"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmRelaPreVisualiza"_s));
    picture(u"frmRelaPreVisualiza_caixa"_s);
    close(form(u"frmRelaPreVisualiza"_s));
    click(window, u"btnBack"_s);
}

void Telas::cheques()
{
    auto *window = choose(u"itmMoviCheques"_s, u"frmMoviCheques"_s);
    showPeriod(window, 60, 60);
    cadastro::clickRow(window, 1);
    click(window, u"btnAlterar"_s);
    picture(u"frmMoviCheques"_s);
    click(window, u"btnVoltar"_s);
    close(window);
}

void Telas::settling()
{
    auto *window = form(u"frmMoviContasPRBaixa"_s);
    cadastro::fill(window, {{u"txtVencimento"_s, u"28/12/2028"_s}});
    picture(u"frmMoviContasPRBaixa"_s, window);
    support::control<QTabWidget>(window, u"tabPagto"_s)->setCurrentIndex(1);
    cadastro::fill(
        window,
        {{u"txtDataPagto"_s, u"28/12/2028"_s}, {u"txtValor"_s, u"1.234,56"_s}, {u"txtNovaData"_s, u"28/12/2028"_s}});
    picture(u"frmMoviContasPRBaixa_parcial"_s, window);
    window->Unload();
}

/// Both tabs, and the window that settles an instalment.
void Telas::contas()
{
    auto *window = choose(u"itmMoviContasPR"_s, u"frmMoviContasPR"_s);
    showPeriod(window, 60, 60, u"Lista_0"_s);
    auto *list = cadastro::list(window, u"Lista_0"_s);
    const auto open = list->rowsWhere(5, [](const QString &paid) { return paid == u"Não"; });
    QVERIFY(!open.empty());
    list->selectRow(open.front());
    list->ensureVisible(open.front());
    cadastro::fill(window, {{u"txtData"_s, u"28/12/2028"_s},
                            {u"txtDescricao"_s, u"aluguel do galpão da rua das acácias"_s},
                            {u"txtValor"_s, u"1.234.567,89"_s},
                            {u"txtVencimento"_s, u"28/12/2028"_s}});
    picture(u"frmMoviContasPR"_s);
    support::whenShown(u"frmMoviContasPRBaixa"_s, [] { settling(); });
    support::key(window, u"Lista_0"_s, Qt::Key_P);
    support::failNotShown();
    support::control<QTabWidget>(window, u"tabContas"_s)->setCurrentIndex(1);
    click(window, u"btnPreenche"_s);
    picture(u"frmMoviContasPR_pagar"_s);
    close(window);
}

void Telas::fiados()
{
    auto *window = choose(u"itmMoviFiado"_s, u"frmMoviFiados"_s);
    support::control<QComboBox>(window, u"cboOS"_s)->setCurrentIndex(2);
    QVERIFY(cadastro::list(window)->count() > 1);
    cadastro::clickRow(window, 1);
    picture(u"frmMoviFiados"_s);
    click(window, u"btnConta"_s);
    auto *account = form(u"frmMoviFiadosConta"_s);
    cadastro::fill(account, {{u"txtData"_s, u"28/12/2028"_s},
                             {u"txtDescricao"_s, u"pagamento recebido no balcão"_s},
                             {u"txtValor"_s, u"1.234.567,89"_s}});
    picture(u"frmMoviFiadosConta"_s);
    close(account);
    close(window);
}

void Telas::abertura()
{
    for (const QString &layout : {u"1"_s, u"3"_s}) {
        core::GravaINI(u"Config"_s, u"LayoutOS"_s, layout, true);
        auto *window = choose(u"itmOSAbrir"_s, u"frmOSAbre"_s);
        picture(u"frmOSAbre_vazio_"_s + layout);
        cadastro::fill(window, {{u"txtCodVeiculo"_s, u"1"_s},
                                {u"txtKm"_s, u"188.888 km"_s},
                                {u"txtObs"_s, u"barulho na roda dianteira ao passar em lombada, freio puxa"_s},
                                {u"txtMecanico"_s, u"francisco das chagas de souza"_s}});
        addItem(u"1288"_s, u"kit embreagem completo com rolamento"_s, u"958,50"_s);
        addItem(u"0,5"_s, u"bela vista"_s, u"24"_s);
        cadastro::fill(window, {{u"txtCodPeca"_s, u"1"_s}, {u"txtQuantidade"_s, u"1.288,888"_s}});
        picture(u"frmOSAbre_"_s + layout);
        close(window);
    }
}

void Telas::cadastroRapido()
{
    auto *window = ui::Forms::instance().Show(u"frmCadaFast"_s);
    show(window, {{u"txtCodCliente"_s, u"0001"_s},
                  {u"txtNome"_s, u"MARIA APARECIDA DE OLIVEIRA CAVALCANTI ALBUQUERQUE E SILVA"_s},
                  {u"txtEndereco"_s, u"AVENIDA PREFEITO EURICO PEREIRA DOS SANTOS"_s},
                  {u"txtNumero"_s, u"12850"_s},
                  {u"txtComplemento"_s, u"BLOCO B APARTAMENTO 1204"_s},
                  {u"txtBairro"_s, u"JARDIM NOSSA SENHORA DAS GRAÇAS"_s},
                  {u"txtCidade"_s, u"SÃO JOSÉ DO RIO PRETO"_s},
                  {u"txtCEP"_s, u"15080-130"_s},
                  {u"txtFone1"_s, u"(17) 3232-8888"_s},
                  {u"txtCelular"_s, u"(17)98888-8888"_s},
                  {u"cboMarca"_s, u"VOLKSWAGEN SPACEFOX HIGHLINE 1.6"_s},
                  {u"txtAno"_s, u"2018/2018"_s},
                  {u"txtCor"_s, u"CINZA QUARTZO METÁLICO"_s},
                  {u"txtPlaca"_s, u"MWO-8888"_s},
                  {u"txtCombustivel"_s, u"ÁLCOOL E GASOLINA"_s}});
    picture(u"frmCadaFast"_s, window);
    close(window);
}

/// The query on the order with the long texts.
ui::Form *Telas::newestOrder(qint16 mode)
{
    core::ModoChamada = mode;
    core::CodigoConsulta = order_.toInt();
    auto *window = ui::Forms::instance().Show(u"frmOSConsulta"_s);
    if (support::text(window, u"lblCodigo"_s).isEmpty()) {
        showOrder(order_);
    }
    return window;
}

void Telas::consulta()
{
    for (const core::Modo mode : {core::modoNormal, core::modoFechaOS, core::modoUmaOS}) {
        core::ModoChamada = mode;
        auto *empty = ui::Forms::instance().Show(u"frmOSConsulta"_s);
        picture(u"frmOSConsulta_vazio_%1"_s.arg(mode));
        close(empty);
        auto *window = newestOrder(mode);
        show(window, {{u"lblDataOut"_s, u"28/12/2024 18:48:58"_s},
                      {u"lblDataPg"_s, u"28/12/2024"_s},
                      {u"lblFormaPg"_s, u"PAGAMENTO PERSONALIZADO"_s}});
        picture(u"frmOSConsulta_%1"_s.arg(mode));
        close(window);
    }
}

void Telas::payments()
{
    auto *window = form(u"frmOSFormaPagto"_s);
    const QString day = runtime::Format(runtime::DateAdd(u"d", 7, runtime::Today()), u"dd/mm/yyyy");
    auto *tabs = support::control<QTabWidget>(window, u"tabPagto"_s);
    const QList<Fields> fields = {
        {{u"txtValor_0"_s, u"1.300.000,00"_s}},
        {{u"txtValor_1"_s, u"1.234.567,89"_s},
         {u"txtBanco_1"_s, u"banco do estado de são paulo"_s},
         {u"txtConta_1"_s, u"0888-8 / 88888-8"_s},
         {u"txtNumCheque"_s, u"888888"_s},
         {u"txtData_1"_s, day}},
        {},
        {{u"txtBanco_3"_s, u"banco do estado de são paulo"_s}, {u"txtConta_3"_s, u"0888-8 / 88888-8"_s}},
        {{u"txtCodCliente"_s, u"1"_s}, {u"txtData_4"_s, day}},
        {{u"txtValor_5"_s, u"123.456,78"_s}},
    };
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        picture(u"frmOSFormaPagto_vazio_%1"_s.arg(tab), window);
        cadastro::fill(window, fields[tab]);
        picture(u"frmOSFormaPagto_%1"_s.arg(tab), window);
    }
    window->Unload();
}

void Telas::pagamento()
{
    auto *window = newestOrder(9);
    support::whenShown(u"frmOSFormaPagto"_s, [] { payments(); });
    click(window, u"btnFechar"_s);
    support::failNotShown();
    close(window);
}

/// An open order in both layouts, the calculator, and a closed one.
void Telas::alteracao()
{
    for (const QString &layout : {u"1"_s, u"3"_s}) {
        core::GravaINI(u"Config"_s, u"LayoutOS"_s, layout, true);
        auto *window = choose(u"itmOSAltera"_s, u"frmOSAltera"_s);
        picture(u"frmOSAltera_vazio_"_s + layout);
        type(window, u"txtCodOS"_s, order_);
        auto *tabs = support::control<QTabWidget>(window, u"tabItems"_s);
        for (int tab = 0; tab < tabs->count(); ++tab) {
            if (tabs->isTabVisible(tab)) {
                tabs->setCurrentIndex(tab);
                picture(u"frmOSAltera_%1_%2"_s.arg(layout).arg(tab));
            }
        }
        click(window, u"btnCalcular"_s);
        picture(u"frmOSAltera_calculo_"_s + layout);
        close(window);
    }
    auto *window = choose(u"itmOSAltera"_s, u"frmOSAltera"_s);
    const auto closed = value(u"SELECT Codigo FROM OrdemServico WHERE EmAberto = False ORDER BY Codigo DESC"_s);
    type(window, u"txtCodOS"_s, runtime::CStr(closed));
    picture(u"frmOSAltera_fechada"_s);
    close(window);
}

/// An estimate of the longest customer.
QString Telas::newEstimate()
{
    const QString dear = u"51.440,33"_s;
    estimates::Orcamento estimate{.marca = u"VOLKSWAGEN SPACEFOX HIGHLINE 1.6 TOTAL FLEX I-MOTION"_s,
                                  .ano = u"2018/2018"_s,
                                  .codCliente = u"0001"_s,
                                  .nome = u"MARIA APARECIDA DE OLIVEIRA CAVALCANTI ALBUQUERQUE E SILVA"_s,
                                  .fone = u"(17) 3232-8888"_s,
                                  .observacoes = u"BARULHO NA RODA DIANTEIRA AO PASSAR EM LOMBADA"_s,
                                  .valor = u"1.234.567,89"_s};
    for (const QString &kind : {u"P"_s, u"S"_s, u"A"_s}) {
        estimate.itens.push_back({u"1"_s, kind, u"12"_s, u"KIT EMBREAGEM COMPLETO COM ROLAMENTO"_s, dear, {}});
        estimate.itens.push_back({u"0"_s, kind, u"0,5"_s, u"BELA VISTA"_s, u"8,88"_s, {}});
    }
    return runtime::Format(estimates::IncluiOrcamento(estimate), u"0000");
}

void Telas::orcamentos()
{
    const QString code = newEstimate();
    const Fields header{{u"txtCodCliente"_s, u"0001"_s},
                        {u"txtNome"_s, u"MARIA APARECIDA DE OLIVEIRA CAVALCANTI ALBUQUERQUE E SILVA"_s},
                        {u"txtFone1"_s, u"(17) 3232-8888"_s},
                        {u"cboMarca"_s, u"VOLKSWAGEN SPACEFOX HIGHLINE 1.6 TOTAL FLEX"_s},
                        {u"cboAno"_s, u"2018/2018"_s},
                        {u"txtObs"_s, u"BARULHO NA RODA DIANTEIRA AO PASSAR EM LOMBADA"_s}};
    auto *novo = choose(u"itmOSOrcaNovo"_s, u"frmOSOrcaNovo"_s);
    picture(u"frmOSOrcaNovo_vazio"_s);
    show(novo, header);
    cadastro::fill(novo, {{u"txtQuantidade"_s, u"12"_s},
                          {u"txtDescricao"_s, u"kit embreagem completo com rolamento"_s},
                          {u"txtValor"_s, u"51440,33"_s}});
    click(novo, u"btnItemAdd"_s);
    picture(u"frmOSOrcaNovo"_s);
    close(novo);

    auto *query = choose(u"itmOSOrcaConsulta"_s, u"frmOSOrcaConsulta"_s);
    picture(u"frmOSOrcaConsulta_vazio"_s);
    type(query, u"txtTexto"_s, code);
    click(query, u"btnPesquisar"_s);
    cadastro::clickRow(query, 0);
    picture(u"frmOSOrcaConsulta"_s);
    close(query);

    auto *altera = choose(u"itmOSOrcaAltera"_s, u"frmOSOrcaAltera"_s);
    picture(u"frmOSOrcaAltera_vazio"_s);
    type(altera, u"txtCodOrcamento"_s, code);
    picture(u"frmOSOrcaAltera"_s);
    close(altera);
}

void Telas::nota()
{
    auto *window = ui::Forms::instance().Show(u"frmNota"_s);
    picture(u"frmNota_vazio"_s);
    type(window, u"txtOS"_s, order_);
    click(window, u"btnItemAdd"_s);
    picture(u"frmNota"_s);
    close(window);
}

/// Suppliers' notes: a new one, all of them, those of one supplier.
void Telas::entradas()
{
    auto *window = choose(u"itmMoviEntradaPecas"_s, u"frmMoviEntradaPeca"_s);
    picture(u"frmMoviEntradaPeca_vazio"_s);
    cadastro::fill(window, {{u"txtCodFornecedor"_s, u"1"_s},
                            {u"txtObs"_s, u"nota fiscal 8.888, entregue sem a caixa de parafusos"_s},
                            {u"txtCodPeca"_s, movedPart()},
                            {u"txtQuantidade"_s, u"1.288"_s}});
    click(window, u"btnItemAdd"_s);
    cadastro::fill(window, {{u"txtCodPeca"_s, movedPart()}, {u"txtQuantidade"_s, u"88"_s}});
    picture(u"frmMoviEntradaPeca"_s);
    close(window);

    window = choose(u"itmMoviEntradaPecasConsultar"_s, u"frmMoviEntradaPecaConsulta"_s);
    picture(u"frmMoviEntradaPecaConsulta_vazio"_s);
    type(window, u"txtDataInicio"_s, runtime::Format(runtime::DateAdd(u"m", -6, runtime::Today()), u"ddmmyyyy"));
    QVERIFY(cadastro::list(window)->count() > 1);
    cadastro::clickRow(window, 1);
    picture(u"frmMoviEntradaPecaConsulta"_s);
    close(window);

    window = choose(u"itmMoviConsEntrPecaFornecedor"_s, u"frmRelaSelecaoNotasEntradas"_s);
    type(window, u"txtCodForn"_s, runtime::CStr(value(u"SELECT CodForn FROM NotasEntradas ORDER BY Codigo DESC"_s)));
    type(window, u"txtDataInicio"_s, runtime::Format(runtime::DateAdd(u"yyyy", -2, runtime::Today()), u"ddmmyyyy"));
    picture(u"frmRelaSelecaoNotasEntradas"_s);
    click(window, u"btnPreenche"_s);
    auto *notes = form(u"frmMoviEntradaPecaConsultaFornecedor"_s);
    cadastro::clickRow(notes, 0);
    picture(u"frmMoviEntradaPecaConsultaFornecedor"_s);
    close(notes);
    close(window);
}

void Telas::origens()
{
    auto *window = ui::Forms::instance().Show(u"frmMoviLivroOrigem"_s);
    picture(u"frmMoviLivroOrigem_vazio"_s);
    showPeriod(window, 60, 0);
    cadastro::clickRow(window, 1);
    picture(u"frmMoviLivroOrigem"_s);
    close(window);
}

void Telas::balanco()
{
    auto *window = choose(u"itmRelaBalanco"_s, u"frmBalanco"_s);
    click(window, u"btnPreenche"_s);
    click(window, u"btnCalcular"_s);
    picture(u"frmBalanco"_s);
    close(window);
}

/// A report, and the window that asks for it.
void Telas::report(const QString &name, const QString &item, const QString &selection)
{
    choose(item);
    if (!selection.isEmpty()) {
        picture(selection);
        click(form(selection), u"btnPreenche"_s);
    }
    picture(u"frmRelatorio_"_s + name);
    close(form(u"frmRelatorio"_s));
    if (!selection.isEmpty()) {
        close(form(selection));
    }
}

void Telas::relatorios()
{
    report(u"estoque"_s, u"itmRelaEstoqueGeralPecas"_s);
    report(u"pecas"_s, u"itmRelaListaPecas"_s);
    report(u"vendidos"_s, u"itmRelaPecaServVendidos"_s, u"frmRelaSelecaoPecas"_s);
    report(u"ordens"_s, u"itmRelaOrdensServicos"_s, u"frmRelaSelecaoOS"_s);
    report(u"contas"_s, u"itmRelaContasPagarReceber"_s, u"frmRelaSelecaoContasPR"_s);
    report(u"cheques"_s, u"itmRelaCheques"_s, u"frmRelaSelecaoCheques"_s);
    report(u"devedores"_s, u"itmRelaListaDevedores"_s);
    report(u"visitas"_s, u"itmRelaVeiculos"_s);
}

void Telas::preVisualizacao()
{
    core::GravaINI(u"Config"_s, u"LayoutOS"_s, u"2"_s, true);
    auto *query = newestOrder(0);
    click(query, u"btnPrevisualizar"_s);
    QTRY_VERIFY(cadastro::isOpen(u"frmRelaPreVisualiza"_s));
    picture(u"frmRelaPreVisualiza"_s);
    close(form(u"frmRelaPreVisualiza"_s));
    close(query);
}

void Telas::avisos()
{
    auto *window = choose(u"itmRelaVencimentosContas"_s, u"frmInfoAviso"_s);
    picture(u"frmInfoAviso"_s);
    close(window);
}

void Telas::configuracoes()
{
    for (const auto &[item, name] : {std::pair(u"itmConfigOrcamento"_s, u"frmConfigOrcamento"_s),
                                     std::pair(u"itmConfigLogo"_s, u"frmConfigLogo"_s)}) {
        auto *window = choose(item, name);
        picture(name);
        window->Unload();
    }
}

void Telas::manual()
{
    auto *window = choose(u"itmMoviCaixa"_s, u"frmMoviCaixa"_s);
    support::key(window, u"Lista"_s, Qt::Key_F1);
    QTRY_VERIFY(cadastro::isOpen(u"frmManual"_s));
    picture(u"frmManual"_s);
    close(form(u"frmManual"_s));
    close(window);
}

void Telas::sobre()
{
    auto *window = choose(u"itmInfoSobre"_s, u"frmInfo"_s);
    picture(u"frmInfo"_s, window);
    window->Unload();
}

void Telas::operadores()
{
    support::whenShown(u"frmSenhaManut"_s, [] {
        auto *window = form(u"frmSenhaManut"_s);
        cadastro::fill(window, {{u"txtCodigo"_s, u"1"_s}});
        picture(u"frmSenhaManut"_s, window);
        window->Unload();
    });
    ui::Forms::instance().ShowModal(u"frmSenhaManut"_s);
    support::failNotShown();
    stop();
    done(u"imagens das janelas da oficina de amostra, em escala %1"_s.arg(qApp->devicePixelRatio()));
}

} // namespace

Assunto telas(const QString &folder)
{
    return std::make_unique<Telas>(folder);
}

} // namespace demonstracao

#include "telas.moc"
