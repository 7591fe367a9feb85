#include "registers/cadastro.h"

#include "ui_painelcadastro.h"

#include "registers/estados.h"
#include "registers/painelcadastro.h"

#include "core/banco.h"
#include "core/config.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace registers
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr auto estado = u"cboEstado";

template<class T>
const T *linhaDe(std::span<const T> linhas, qint16 modo)
{
    const auto achada = std::ranges::find(linhas, modo, &T::modo);
    return achada == linhas.end() ? nullptr : &*achada;
}

} // namespace

Cadastro::Cadastro(const Registro &registro)
    : Form(registro.janela.toString()), registro_(registro), campos_(*this, registro.campos, registro.verificacoes)
{
}

Cadastro::~Cadastro() = default;

// --- events

void Cadastro::ligaCadastro(PainelCadastro &painel)
{
    painel_ = &painel.controles();
    onClick(painel_->btnPesquisar, &Cadastro::btnPesquisar_Click);
    onClick(painel_->btnLocalizar, &Cadastro::btnLocalizar_Click);
    onClick(painel_->btnTodos, &Cadastro::btnTodos_Click);
    onClick(painel_->btnIncluir, &Cadastro::btnIncluir_Click);
    onClick(painel_->btnAlterar, &Cadastro::btnAlterar_Click);
    onClick(painel_->btnExcluir, &Cadastro::btnExcluir_Click);
    onClick(painel_->btnCancelar, &Cadastro::btnCancelar_Click);
    onClick(painel_->btnVoltar, &Cadastro::btnVoltar_Click);
    onItemClick(painel_->Lista, &Cadastro::Lista_Click);
    onItemDoubleClick(painel_->Lista, &Cadastro::Lista_DblClick);
    campos_.liga();
    // Enter walks through the fields into the commands: the small buttons beside the fields come behind the list.
    QWidget *anterior = painel_->Lista;
    for (auto *botao : findChildren<QPushButton *>()) {
        if (!painel.isAncestorOf(botao)) {
            setTabOrder(anterior, botao);
            anterior = botao;
        }
    }
}

// --- opening

void Cadastro::Form_Load()
{
    ui::CentraForm(*this, false);
    aoAbrir();
    abre();
    campos_.limita(registro_.tabela.toString());
    if (auto *estados = campos_.combo(estado)) {
        PreencheEstados(estados);
    }
    MontaPesquisas(*painel_->cboPesquisa, registro_.pesquisas);
    painel_->cboPesquisa->setCurrentIndex(registro_.pesquisaInicial);
    MontaLista(*painel_->Lista, registro_.lista);
    if (Config(u"PreencheCadastroAutomatico"_s) == u"S") {
        btnTodos_Click();
    }
    campos_.carregaListas();
}

void Cadastro::abre()
{
    const Abertura *abertura = linhaDe(registro_.aberturas, ModoChamada);
    setWindowTitle(captionOf((abertura != nullptr ? abertura->titulo : registro_.titulo).toString()));
    if (abertura != nullptr) {
        campos_.controle(abertura->foco)->setFocus(); // it is taken when the window shows
    }
}

// --- search and list

void Cadastro::btnPesquisar_Click()
{
    const QString procurado = painel_->txtTexto->text();
    if (!registro_.pesquisa.textoVazioPesquisa) {
        painel_->Lista->clear();
        if (procurado.isEmpty()) {
            return;
        }
    }
    try {
        pesquisa(procurado);
    } catch (const RuntimeError &) {
        Recusa(registro_.pesquisa.mensagemErro.toString(), painel_->txtTexto);
    }
}

void Cadastro::pesquisa(const QString &procurado)
{
    const RegraPesquisa &regra = registro_.pesquisa;
    const auto &escolhida = registro_.pesquisas[static_cast<std::size_t>(painel_->cboPesquisa->currentIndex())];
    dao::Recordset linhas =
        DBDados->OpenRecordset(regra.antes.toString() + Condicao(escolhida, procurado) + regra.depois.toString());
    if (!linhas.Eof()) {
        EncheLista(*painel_->Lista, std::move(linhas), registro_.lista);
    } else if (!regra.mensagemVazia.isEmpty()) {
        Recusa(regra.mensagemVazia.toString(), painel_->txtTexto);
    }
}

void Cadastro::btnTodos_Click()
{
    EncheLista(*painel_->Lista, DBDados->OpenRecordset(registro_.consultaTodos.toString()), registro_.lista);
}

void Cadastro::btnLocalizar_Click()
{
    const QString procurado = painel_->txtTexto->text();
    if (procurado.isEmpty()) {
        painel_->Lista->setFocus();
        return;
    }
    LocalizaLista(painel_->Lista, procurado, registro_.colunaLocaliza, true, true);
    if (const int linha = painel_->Lista->selectedRow(); linha >= 0) {
        carregaLocalizado(painel_->Lista->item(linha).text());
    }
}

// --- one record

void Cadastro::Lista_Click()
{
    if (const int linha = painel_->Lista->selectedRow(); linha >= 0) {
        carrega(painel_->Lista->item(linha).text());
    }
}

void Cadastro::carrega(const QString &codigo)
{
    const dao::Recordset linha = DBDados->OpenRecordset(registro_.consultaLinha + codigo + registro_.consultaLinhaFim);
    if (!linha.Eof()) {
        campos_.mostra(linha);
        depoisDeCarregar();
    } else if (!registro_.consultaSegunda.isEmpty()) {
        carregaSegunda(codigo);
    }
}

void Cadastro::carregaSegunda(const QString &codigo)
{
    const dao::Recordset linha = DBDados->OpenRecordset(registro_.consultaSegunda + codigo);
    if (!linha.Eof()) {
        campos_.mostra(linha, {}, true);
        depoisDeCarregar();
    }
}

void Cadastro::carregaLocalizado(const QString &codigo)
{
    const QStringView consulta =
        registro_.consultaLocaliza.isEmpty() ? registro_.consultaLinha : registro_.consultaLocaliza;
    const dao::Recordset linha = DBDados->OpenRecordset(consulta + codigo);
    if (!linha.Eof()) {
        campos_.mostra(linha, registro_.excecoesLocaliza);
    }
}

/// The row of lblCodigo; none where no record is shown or it is gone.
std::optional<dao::Recordset> Cadastro::linhaMostrada() const
{
    const QString codigo = campos_.texto(u"lblCodigo");
    if (codigo.isEmpty()) {
        return std::nullopt;
    }
    dao::Recordset linha =
        DBDados->OpenRecordset(u"SELECT * FROM "_s + registro_.tabela.toString() + u" WHERE Codigo = "_s + codigo);
    if (linha.Eof()) {
        return std::nullopt;
    }
    return linha;
}

// --- include, alter, delete

bool Cadastro::confere(Gravacao gravacao)
{
    return campos_.confere(gravacao);
}

void Cadastro::btnIncluir_Click()
{
    if (confere(Gravacao::Inclusao) && ui::Confirm(u"Confirma a Inclusão"_s, NomeEmpresa)) {
        depoisDeIncluir(inclui());
    }
}

qint32 Cadastro::inclui()
{
    return IncluiRegistro(registro_, textosGravados());
}

TextoDoControle Cadastro::textosGravados() const
{
    return [this](QStringView nome) { return textoGravado(nome); };
}

QString Cadastro::textoGravado(QStringView nome) const
{
    return campos_.texto(nome);
}

void Cadastro::depoisDeIncluir(qint32 codigo)
{
    if (!Devolve(*this, Ocasiao::Inclusao, QString::number(codigo))) {
        btnTodos_Click();
        limpa();
    }
}

void Cadastro::btnAlterar_Click()
{
    if (registro_.localizaAntesDeConferir) {
        if (recusaSemCodigo()) {
            return;
        }
        if (!linhaMostrada()) {
            avisaNaoLocalizado();
            return;
        }
    }
    if (!confere(Gravacao::Alteracao) || !ui::Confirm(u"Confirma a Alteração"_s, NomeEmpresa)) {
        return;
    }
    antesDeAlterar();
    auto linha = linhaMostrada();
    if (!linha) {
        avisaNaoLocalizado();
        return;
    }
    linha->Edit();
    GravaCampos(*linha, registro_.campos, Gravacao::Alteracao, textosGravados());
    linha->Update();
    linha->Close();
    btnTodos_Click();
    limpa();
}

void Cadastro::btnExcluir_Click()
{
    if (recusaSemCodigo() || !ui::Confirm(u"Deseja excluir o registro atual"_s, NomeEmpresa)) {
        return;
    }
    for (const QStringView exclusao : registro_.exclusoes) {
        DBDados->Execute(exclusao + campos_.texto(u"lblCodigo"));
    }
    btnTodos_Click();
    depoisDeExcluir();
}

bool Cadastro::recusaSemCodigo()
{
    if (!campos_.texto(u"lblCodigo").isEmpty()) {
        return false;
    }
    Recusa(u"Código Inválido"_s, painel_->Lista);
    return true;
}

void Cadastro::avisaNaoLocalizado() const
{
    ui::MsgBox(registro_.naoLocalizado.toString(), ui::Icon::Exclamation, NomeEmpresa);
}

void Cadastro::btnCancelar_Click()
{
    limpa();
}

void Cadastro::limpa()
{
    if (auto *estados = campos_.combo(estado)) {
        estados->setCurrentIndex(estadoInicial);
    }
    campos_.escreve([this] { LimpaForm(*this, {.textoCombos = false}); });
    campos_.foca();
}

void Cadastro::btnVoltar_Click()
{
    Unload();
}

// --- hand-back

void Cadastro::Lista_DblClick()
{
    const int linha = painel_->Lista->selectedRow();
    if (linha < 0) {
        return;
    }
    const QString codigo = painel_->Lista->item(linha).text();
    // Enter comes without the click that has loaded the row of a double click.
    if (campos_.texto(u"lblCodigo") != codigo) {
        carrega(codigo);
    }
    if (Devolve(*this, Ocasiao::Escolha, codigo)) {
        depoisDeDevolver();
    }
}

void RegistraCadastro(const Registro &registro, const ui::Forms::Factory &fabrica)
{
    RegistraJanela(registro.janela.toString(), fabrica,
                   {{Ocasiao::Escolha, registro.devolucoes}, {Ocasiao::Inclusao, registro.devolucoesInclusao}});
}

} // namespace registers
