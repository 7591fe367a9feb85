#include "ui_frmCadaCor.h"

#include "registers/cadastrosimples.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using namespace core;
using namespace registers;
using support::click;
using support::text;
using support::type;

namespace
{

constexpr std::array campos{
    Campo{u"lblCodigo", u"Codigo", comoCodigo},
    Campo{u"txtCor", u"Nome", comoEsta, comoTexto},
};
constexpr std::array verificacoes{Verificacao{u"txtCor", naoVazio, u"Cor Inválida"}};
constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Cor", 3000, u"Nome", comoEsta},
};
constexpr std::array pesquisas{Pesquisa{u"Cor", u"Nome LIKE '*", Comparacao::Contem}};
constexpr std::array<QStringView, 1> exclusoes{u"DELETE * FROM Cores WHERE codigo = "};

constexpr Registro registro{
    .janela = u"frmCadaCor",
    .tabela = u"Cores",
    .titulo = u" - [Cadastro de Cores]",
    .campos = campos,
    .verificacoes = verificacoes,
    .lista = {.colunas = colunas},
    .pesquisas = pesquisas,
    .pesquisa = {.antes = u"SELECT * FROM Cores WHERE ", .depois = u" ORDER By Nome"},
    .consultaTodos = u"SELECT * FROM Cores ORDER BY Nome",
    .consultaLinha = u"SELECT * FROM Cores WHERE Codigo = ",
    .exclusoes = exclusoes,
};

} // namespace

/// A register beside the four of the program: its layout and its table are all that it takes.
class TstCadastroNovo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void opensWithItsCaptionColumnsAndFocus();
    void takesWhatItsColumnHolds();
    void checksAddsAltersAndDeletes();
    void searchesAndFinds();

private:
    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *form_ = nullptr;
};

void TstCadastroNovo::initTestCase()
{
    RegistraCadastro(registro, [] { return new CadastroSimples<Ui::frmCadaCor>(registro); });
}

void TstCadastroNovo::init()
{
    program_ = std::make_unique<support::Program>();
    program_->sql(u"CREATE TABLE Cores (Codigo COUNTER, Nome TEXT(12))"_s);
    boxes_ = std::make_unique<support::Boxes>();
    form_ = cadastro::open(u"frmCadaCor"_s);
}

void TstCadastroNovo::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstCadastroNovo::opensWithItsCaptionColumnsAndFocus()
{
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Cadastro de Cores]"_s);
    QCOMPARE(cadastro::titlesOf(form_), (QStringList{u"Código"_s, u"Cor"_s}));
    QCOMPARE(cadastro::focusOf(form_), u"txtCor"_s);
}

void TstCadastroNovo::takesWhatItsColumnHolds()
{
    type(form_, u"txtCor"_s, u"azul escuro metálico"_s);
    QCOMPARE(text(form_, u"txtCor"_s), u"AZUL ESCURO "_s);
}

void TstCadastroNovo::checksAddsAltersAndDeletes()
{
    boxes_->exclamation(u"Cor Inválida"_s);
    click(form_, u"btnIncluir"_s);

    boxes_->question(u"Confirma a Inclusão"_s, true);
    type(form_, u"txtCor"_s, u"azul"_s);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Cores"_s), (cadastro::Rows{{u"1"_s, u"AZUL"_s}}));
    QCOMPARE(cadastro::rowsOf(form_), (cadastro::Rows{{u"0001"_s, u"AZUL"_s}}));
    QCOMPARE(text(form_, u"txtCor"_s), QString());

    cadastro::clickRow(form_, 0);
    QCOMPARE(text(form_, u"lblCodigo"_s), u"0001"_s);
    boxes_->question(u"Confirma a Alteração"_s, true);
    type(form_, u"txtCor"_s, u"verde"_s);
    click(form_, u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Cores"_s), (cadastro::Rows{{u"1"_s, u"VERDE"_s}}));

    cadastro::clickRow(form_, 0);
    boxes_->question(u"Deseja excluir o registro atual"_s, true);
    click(form_, u"btnExcluir"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Cores"_s).empty());
}

void TstCadastroNovo::searchesAndFinds()
{
    for (const QString &cor : {u"VERDE"_s, u"VERMELHO"_s, u"AZUL"_s}) {
        program_->sql(u"INSERT INTO Cores (Nome) VALUES ('%1')"_s.arg(cor));
    }
    type(form_, u"txtTexto"_s, u"erm"_s);
    click(form_, u"btnPesquisar"_s);
    QCOMPARE(cadastro::columnOf(form_, 1), (QStringList{u"VERMELHO"_s}));

    click(form_, u"btnTodos"_s);
    type(form_, u"txtTexto"_s, u"ver"_s);
    click(form_, u"btnLocalizar"_s);
    QCOMPARE(text(form_, u"txtCor"_s), u"VERDE"_s);
}

TARVELO_TEST_MAIN(TstCadastroNovo)
#include "tst_cadastronovo.moc"
