#include "registers/cadastro.h"

#include "ui_painelcadastro.h"

#include "registers/estados.h"
#include "registers/painelcadastro.h"

#include "core/banco.h"
#include "core/combos.h"
#include "core/config.h"
#include "core/funcoes.h"
#include "core/limites.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace registers
{

using namespace runtime;
using namespace core;
using namespace Qt::StringLiterals;

namespace
{

constexpr auto estado = u"cboEstado";
constexpr auto marca = u"cboMarca";

template<class T>
const T *linhaDe(std::span<const T> linhas, qint16 modo)
{
    const auto achada = std::ranges::find(linhas, modo, &T::modo);
    return achada == linhas.end() ? nullptr : &*achada;
}

/// The place of a column in the row, or -1 where the statement does not bring it.
int lugarDe(const dao::Recordset &linha, QStringView coluna)
{
    for (int lugar = 0; lugar < linha.fieldCount(); ++lugar) {
        if (linha.field(lugar).name.compare(coluna, Qt::CaseInsensitive) == 0) {
            return lugar;
        }
    }
    return -1;
}

/// An option that is taken back means that the other one of its pair is chosen.
void poeOpcao(QRadioButton &opcao, bool ligada)
{
    if (ligada) {
        opcao.setChecked(true);
        return;
    }
    for (auto *irma : opcao.parentWidget()->findChildren<QRadioButton *>(Qt::FindDirectChildrenOnly)) {
        if (irma != &opcao) {
            irma->setChecked(true);
        }
    }
}

/// A text that is longer than its box shows its beginning.
void mostraInicio(QWidget *alvo)
{
    if (auto *caixa = qobject_cast<QLineEdit *>(alvo)) {
        caixa->setCursorPosition(0);
    }
}

bool semDigitar(const QComboBox *lista)
{
    return lista != nullptr && !lista->isEditable();
}

} // namespace

Cadastro::Cadastro(const Registro &registro) : Form(registro.janela.toString()), registro_(registro) {}

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
    ligaCampos();
    // Enter walks through the fields into the commands: the small buttons beside the fields come behind the list.
    QWidget *anterior = painel_->Lista;
    for (auto *botao : findChildren<QPushButton *>()) {
        if (!painel.isAncestorOf(botao)) {
            setTabOrder(anterior, botao);
            anterior = botao;
        }
    }
}

void Cadastro::ligaCampos()
{
    for (std::size_t i = 0; i < registro_.campos.size(); ++i) {
        const Campo &campo = registro_.campos[i];
        const int indice = static_cast<int>(i);
        if (campo.tecla != nullptr) {
            filterKeys(controle(campo.controle), campo.tecla);
        }
        if (campo.mascara == TipoMascara::Valor) {
            onLostFocus(controle(campo.controle), &Cadastro::campo_LostFocus, indice);
        } else if (campo.mascara) {
            onChange(controle(campo.controle), &Cadastro::campo_Change, indice);
        }
        if (campo.mascara == TipoMascara::Data) {
            tidyPaste(controle(campo.controle), DataColada);
        }
    }
}

void Cadastro::ligaMarca()
{
    onChange(controle(marca), &Cadastro::cboMarca_Change);
    auto *acrescenta = qobject_cast<QAbstractButton *>(controle(u"btnMarcaAdd"));
    auto *remove = qobject_cast<QAbstractButton *>(controle(u"btnMarcaRemove"));
    onClick(acrescenta, &Cadastro::btnMarcaAdd_Click);
    onClick(remove, &Cadastro::btnMarcaRemove_Click);
    acrescenta->setIcon(ui::icon(u"bookmark-new"_s));
    remove->setIcon(ui::icon(u"edit-delete"_s));
}

void Cadastro::campo_Change(int indice)
{
    const Campo &campo = registro_.campos[static_cast<std::size_t>(indice)];
    auto *caixa = qobject_cast<QLineEdit *>(controle(campo.controle));
    if (escrevendo_) {
        AnotaTexto(caixa);
    } else {
        MascaraTexto(caixa, *campo.mascara);
    }
}

void Cadastro::campo_LostFocus(int indice)
{
    const Campo &campo = registro_.campos[static_cast<std::size_t>(indice)];
    MascaraTexto(qobject_cast<QLineEdit *>(controle(campo.controle)), TipoMascara::Valor);
}

void Cadastro::cboMarca_Change()
{
    if (escrevendo_) {
        AnotaTexto(combo(marca));
    } else {
        AutoCompletaCombo(combo(marca));
    }
}

void Cadastro::btnMarcaAdd_Click()
{
    AtualizaCombo(combo(marca), ListaCombo::MarcaModelo, ModoCombo::Acrescenta);
}

void Cadastro::btnMarcaRemove_Click()
{
    AtualizaCombo(combo(marca), ListaCombo::MarcaModelo, ModoCombo::Exclui);
}

// --- opening

void Cadastro::Form_Load()
{
    ui::CentraForm(*this, false);
    aoAbrir();
    abre();
    limitaTextos();
    if (auto *estados = combo(estado)) {
        PreencheEstados(estados);
    }
    MontaPesquisas(*painel_->cboPesquisa, registro_.pesquisas);
    painel_->cboPesquisa->setCurrentIndex(registro_.pesquisaInicial);
    MontaLista(*painel_->Lista, registro_.lista);
    if (Config(u"PreencheCadastroAutomatico"_s) == u"S") {
        btnTodos_Click();
    }
    if (auto *marcas = combo(marca)) {
        AtualizaCombo(marcas, ListaCombo::MarcaModelo, ModoCombo::Carrega);
    }
}

void Cadastro::abre()
{
    const Abertura *abertura = linhaDe(registro_.aberturas, ModoChamada);
    setWindowTitle(captionOf((abertura != nullptr ? abertura->titulo : registro_.titulo).toString()));
    if (abertura != nullptr) {
        controle(abertura->foco)->setFocus(); // it is taken when the window shows
    }
}

void Cadastro::limitaTextos()
{
    const dao::Recordset tabela = DBDados->OpenRecordset(registro_.tabela.toString());
    for (const Campo &campo : registro_.campos) {
        if (!campo.aceitaMaior && lugarDe(tabela, campo.coluna) >= 0) {
            LimitaAoCampo(controle(campo.controle), tabela, campo.coluna);
        }
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
        mostra(linha, Origem::Clique);
        depoisDeCarregar();
    } else if (!registro_.consultaSegunda.isEmpty()) {
        carregaSegunda(codigo);
    }
}

void Cadastro::carregaSegunda(const QString &codigo)
{
    const dao::Recordset linha = DBDados->OpenRecordset(registro_.consultaSegunda + codigo);
    if (!linha.Eof()) {
        mostra(linha, Origem::Segunda);
        depoisDeCarregar();
    }
}

void Cadastro::carregaLocalizado(const QString &codigo)
{
    const QStringView consulta =
        registro_.consultaLocaliza.isEmpty() ? registro_.consultaLinha : registro_.consultaLocaliza;
    const dao::Recordset linha = DBDados->OpenRecordset(consulta + codigo);
    if (!linha.Eof()) {
        mostra(linha, Origem::Localizado);
    }
}

void Cadastro::mostra(const dao::Recordset &linha, Origem origem)
{
    for (const Campo &campo : registro_.campos) {
        const Mostra comoMostra = mostraDe(campo, origem);
        const int lugar = lugarDe(linha, campo.coluna);
        if (comoMostra != nullptr && lugar >= 0) {
            poeTexto(campo.controle, comoMostra(linha, lugar));
        } else if (origem == Origem::Segunda) {
            poeTexto(campo.controle, {});
        }
    }
}

Mostra Cadastro::mostraDe(const Campo &campo, Origem origem) const
{
    if (origem == Origem::Localizado) {
        for (const ExcecaoLocaliza &excecao : registro_.excecoesLocaliza) {
            if (excecao.controle == campo.controle) {
                return excecao.mostra;
            }
        }
    }
    return campo.mostra;
}

/// The row of lblCodigo; none where no record is shown or it is gone.
std::optional<dao::Recordset> Cadastro::linhaMostrada() const
{
    const QString codigo = texto(u"lblCodigo");
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

bool Cadastro::confere(Gravacao /*gravacao*/)
{
    for (const Verificacao &verificacao : registro_.verificacoes) {
        if (!verificacao.aceita(texto(verificacao.controle))) {
            const QStringView foco = verificacao.foco.isEmpty() ? verificacao.controle : verificacao.foco;
            Recusa(verificacao.mensagem.toString(), controle(foco));
            return false;
        }
    }
    return true;
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
    return texto(nome);
}

void Cadastro::depoisDeIncluir(qint32 codigo)
{
    if (!devolve(registro_.devolucoesInclusao, QString::number(codigo))) {
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
        DBDados->Execute(exclusao + texto(u"lblCodigo"));
    }
    btnTodos_Click();
    depoisDeExcluir();
}

bool Cadastro::recusaSemCodigo()
{
    if (!texto(u"lblCodigo").isEmpty()) {
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
    if (auto *estados = combo(estado)) {
        estados->setCurrentIndex(estadoInicial);
    }
    const QScopedValueRollback escrevendo(escrevendo_, true);
    LimpaForm(*this, {.textoCombos = false});
    const auto primeiro = std::ranges::find_if(registro_.campos, [this](const Campo &campo) {
        return controle(campo.controle)->focusPolicy() != Qt::NoFocus;
    });
    controle(primeiro->controle)->setFocus();
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
    if (texto(u"lblCodigo") != codigo) {
        carrega(codigo);
    }
    if (devolve(registro_.devolucoes, codigo)) {
        depoisDeDevolver();
    }
}

bool Cadastro::devolve(std::span<const Devolucao> linhas, const QString &codigo)
{
    const Devolucao *ultima = nullptr;
    for (const Devolucao &linha : linhas) {
        if (linha.modo == ModoChamada) {
            EscreveDevolucao(linha, linha.origem.isEmpty() ? codigo : texto(linha.origem));
            ultima = &linha;
        }
    }
    if (ultima == nullptr) {
        return false;
    }
    // A caller that names a control of its own for the focus has it before this window goes.
    if (!ultima->foco.isEmpty()) {
        FocaDevolucao(*ultima);
        Unload();
        return true;
    }
    Unload();
    FocaDevolucao(*ultima);
    return true;
}

// --- controls by name

QWidget *Cadastro::controle(QStringView nome) const
{
    auto *achado = findChild<QWidget *>(nome.toString());
    Q_ASSERT_X(achado, "Cadastro::controle", qPrintable(nome.toString()));
    return achado;
}

QComboBox *Cadastro::combo(QStringView nome) const
{
    return findChild<QComboBox *>(nome.toString());
}

QString Cadastro::texto(QStringView nome) const
{
    const QWidget *alvo = controle(nome);
    if (const auto *opcao = qobject_cast<const QRadioButton *>(alvo)) {
        return opcao->isChecked() ? u"-1"_s : u"0"_s;
    }
    if (const auto *lista = qobject_cast<const QComboBox *>(alvo); semDigitar(lista)) {
        return QString::number(lista->currentIndex());
    }
    return ui::textOf(alvo);
}

void Cadastro::poeTexto(QStringView nome, const QString &texto)
{
    const QScopedValueRollback escrevendo(escrevendo_, true);
    QWidget *alvo = controle(nome);
    if (auto *opcao = qobject_cast<QRadioButton *>(alvo)) {
        poeOpcao(*opcao, texto != u"0");
    } else if (auto *lista = qobject_cast<QComboBox *>(alvo); semDigitar(lista)) {
        lista->setCurrentIndex(texto.toInt());
    } else {
        ui::setTextOf(alvo, texto);
        mostraInicio(alvo);
    }
}

void Cadastro::esvazia(std::span<const QStringView> nomes)
{
    for (const QStringView nome : nomes) {
        poeTexto(nome, {});
    }
}

} // namespace registers
