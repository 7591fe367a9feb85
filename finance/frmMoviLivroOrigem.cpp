#include "finance/frmMoviLivroOrigem.h"

#include "ui_frmMoviLivroOrigem.h"

#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/pagina.h"
#include "finance/livroorigem.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"

#include <array>

namespace finance
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr std::array colunas{
    ColunaLista{u"Código", 800, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1400, u"Data", comoData},
    ColunaLista{u"Origem", 3100, u"Origem", comoEsta},
    ColunaLista{u"Dinheiro", 1350, u"Dinheiro", comoValor, Qt::AlignRight},
    ColunaLista{u"Cheque A V.", 1350, u"Avista", comoValor, Qt::AlignRight},
    ColunaLista{u"Cheque Pré", 1350, u"Aprazo", comoValor, Qt::AlignRight},
    ColunaLista{u"Duplicata", 1350, u"Duplicata", comoValor, Qt::AlignRight},
};
constexpr std::array somasDasOrigens{Soma{u"Dinheiro"}, Soma{u"Avista"}, Soma{u"Aprazo"}, Soma{u"Duplicata"}};
constexpr std::array<QStringView, 3> semOrigens{u"", u"", u"Registro Não Localizado"};

/// The deletion goes to the completion lists by the code of the row, as it always has, and leaves the book as it
/// stands.
constexpr std::array tabelas{TabelaMovimento{
    .tabela = u"LivroOrigem",
    .consulta = u"SELECT * FROM LivroOrigem WHERE Data BETWEEN ",
    .consultaFim = u" ORDER BY Codigo",
    .lista = {.colunas = colunas, .somas = somasDasOrigens, .vazia = semOrigens},
    .exclusao = u"DELETE * FROM Combos WHERE Codigo = ",
}};

constexpr std::array verificacoes{
    Verificacao{u"txtData", dataValida, u"Data Inválida"},
    Verificacao{u"txtOrigem", naoVazio, u"Origem Inválida"},
};

constexpr Movimento movimento{
    .janela = u"frmMoviLivroOrigem",
    .titulo = u" - [Livro de Origem]",
    .tabelas = tabelas,
    .campos = camposDaOrigem,
    .verificacoes = verificacoes,
    .periodo = Periodo{.diasAntes = 30},
    .cliqueCopia = true,
    .naoLocalizado = u"Código Não Localizado",
};

constexpr std::array camposImpressos{
    CampoDaLista{1}, // the columns of the list from the date on
    CampoDaLista{2},
    CampoDaLista{3, Lado::Direita},
    CampoDaLista{4, Lado::Direita},
    CampoDaLista{5, Lado::Direita},
    CampoDaLista{6, Lado::Direita},
};
constexpr std::array linhasImpressas{
    LinhaImpressa{u"DATA       - ORIGEM                           - DINHEIRO   - CHEQUE AV. - CHEQUE PRÉ - DUPLICATA ",
                  camposImpressos}};
constexpr Pagina livroImpresso{.titulo = u"RELATÓRIO DE ORIGENS", .linhas = linhasImpressas};

} // namespace

frmMoviLivroOrigem::frmMoviLivroOrigem() : JanelaMovimento(movimento), ui_(std::make_unique<Ui::frmMoviLivroOrigem>())
{
    ui_->setupUi(this);
    ligaMovimento();
    onClick(ui_->btnPrint, &frmMoviLivroOrigem::btnPrint_Click);
    onClick(ui_->btnPrevisualizar, &frmMoviLivroOrigem::btnPrevisualizar_Click);
    onChange(ui_->lblPrint, &frmMoviLivroOrigem::lblPrint_Change);
}

frmMoviLivroOrigem::~frmMoviLivroOrigem() = default;

/// A row always has its four amounts.
bool frmMoviLivroOrigem::confere(Gravacao gravacao)
{
    if (!JanelaMovimento::confere(gravacao)) {
        return false;
    }
    for (const QStringView valor : valoresDaOrigem) {
        if (!numerico(campos().texto(valor))) {
            campos().poeTexto(valor, u"0,00"_s);
        }
    }
    return true;
}

void frmMoviLivroOrigem::depoisDePreencher(const Somas &somas, bool vazia)
{
    if (vazia) {
        return;
    }
    QStringList textos{{}, u"Total:"_s};
    for (const float soma : somas) {
        textos << runtime::Format(soma, mascaraValor);
    }
    lista().addItem({}, textos);
}

// --- paper

void frmMoviLivroOrigem::btnPrint_Click()
{
    imprime(Acao::Imprime);
}

void frmMoviLivroOrigem::btnPrevisualizar_Click()
{
    imprime(Acao::PreVisualiza);
}

/// The preview asks for paper.
void frmMoviLivroOrigem::lblPrint_Change()
{
    btnPrint_Click();
}

/// The mode is what the preview finds this window by.
void frmMoviLivroOrigem::imprime(Acao acao)
{
    ModoChamada = modoRelaOrigem;
    const QString periodo = u"de "_s + ui_->txtDataInicio->text() + u" até "_s + ui_->txtDataFim->text();
    ImprimeLista(acao, *ui_->Lista, livroImpresso, {.linhas = {{{u"Período..........: "_s, periodo}}}});
}

} // namespace finance
