#include "core/movimento.h"

#include "core/banco.h"
#include "core/informacoes.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/listview.h"
#include "platform/ui/reasons.h"

#include <QAbstractButton>

#include <algorithm>

namespace core
{

using namespace runtime;
using namespace Qt::StringLiterals;

namespace
{

const auto salvar = u"Salvar"_s;
const auto cancelar = u"Cancelar"_s;
constexpr auto propLegenda = "legenda"; ///< the caption of a button as its layout has it

/// False where a window has nothing to say.
bool avisa(QStringView mensagem)
{
    if (mensagem.isEmpty()) {
        return false;
    }
    ui::MsgBox(mensagem.toString(), ui::Icon::Exclamation, NomeEmpresa);
    return true;
}

/// Rows of totals, and the one that stands for no result, have no code.
bool temCodigo(const QString &codigo)
{
    return IsNumeric(codigo);
}

} // namespace

JanelaMovimento::JanelaMovimento(const Movimento &movimento)
    : Form(movimento.janela.toString()), movimento_(movimento), campos_(*this, movimento.campos, movimento.verificacoes)
{
}

void JanelaMovimento::ligaMovimento()
{
    campos_.liga();
    campos_.ligaBotoesDasListas();
    for (const auto &[nome, evento] : std::initializer_list<std::pair<QString, void (JanelaMovimento::*)()>>{
             {u"btnIncluir"_s, &JanelaMovimento::btnIncluir_Click},
             {u"btnAlterar"_s, &JanelaMovimento::btnAlterar_Click},
             {u"btnExcluir"_s, &JanelaMovimento::btnExcluir_Click},
             {u"btnVoltar"_s, &JanelaMovimento::btnVoltar_Click},
             {u"btnPreenche"_s, &JanelaMovimento::preenche}}) {
        if (auto *presente = findChild<QAbstractButton *>(nome)) {
            onClick(presente, evento);
        }
    }
    for (auto *lista : findChildren<ui::ListView *>()) {
        onItemClick(lista, &JanelaMovimento::Lista_Click);
        onItemDoubleClick(lista, &JanelaMovimento::Lista_DblClick);
        if (movimento_.teclaP) {
            onKey(lista, Qt::Key_P, &JanelaMovimento::Lista_P);
        }
    }
}

void JanelaMovimento::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(captionOf(movimento_.titulo.toString()));
    for (const TabelaMovimento &outra : movimento_.tabelas) {
        auto *lista = findChild<ui::ListView *>(outra.controleLista.toString());
        if (lista->columnCount() == 0) {
            MontaLista(*lista, outra.lista);
        }
        campos_.limita(outra.tabela.toString());
    }
    if (movimento_.periodo) {
        AbrePeriodo(*this, *movimento_.periodo);
    }
    if (movimento_.soAdministrador) {
        SoAdministrador(u"Somente o administrador altera e exclui registros"_s,
                        {botao(u"btnAlterar"_s), botao(u"btnExcluir"_s)});
    }
    preencheAoAbrir();
    campos_.carregaListas();
    campos_.foca();
}

// --- the list

const TabelaMovimento &JanelaMovimento::tabela() const
{
    return movimento_.tabelas.front();
}

ui::ListView &JanelaMovimento::lista() const
{
    return *findChild<ui::ListView *>(tabela().controleLista.toString());
}

QString JanelaMovimento::consulta() const
{
    const QString periodo = movimento_.periodo ? PeriodoSQL(*this) : QString();
    return tabela().consulta + periodo + tabela().consultaFim;
}

void JanelaMovimento::preencheAoAbrir()
{
    preenche();
}

void JanelaMovimento::preenche()
{
    const QString texto = consulta();
    if (texto.isEmpty()) {
        lista().clear();
        return;
    }
    dao::Recordset linhas = DBDados->OpenRecordset(texto);
    const bool vazia = linhas.Eof();
    depoisDePreencher(EncheLista(lista(), std::move(linhas), tabela().lista), vazia);
}

void JanelaMovimento::Lista_Click(int linha)
{
    const ui::ListItem item = lista().item(linha);
    if (!temCodigo(item.text())) {
        return;
    }
    if (!movimento_.codigo.isEmpty()) {
        campos_.poeTexto(movimento_.codigo, item.text());
    }
    if (movimento_.cliqueCopia) {
        copia(item);
    }
}

void JanelaMovimento::Lista_DblClick(int linha)
{
    const ui::ListItem item = lista().item(linha);
    if (item.smallIcon() > 0) {
        MostraOrdem(ordemDaLinha(item));
    }
}

QString JanelaMovimento::ordemDaLinha(const ui::ListItem &linha) const
{
    return linha.tag();
}

void JanelaMovimento::Lista_P()
{
    const int linha = lista().selectedRow();
    if (linha < 0 || !temCodigo(lista().item(linha).text())) {
        return;
    }
    const QString codigo = lista().item(linha).text();
    teclaP(lista().item(linha));
    escolhe(codigo);
}

/// A list that was filled anew has no row chosen; the user goes on from where he was.
void JanelaMovimento::escolhe(const QString &codigo)
{
    if (const int linha = linhaDe(codigo); linha >= 0) {
        lista().selectRow(linha);
        lista().ensureVisible(linha);
    }
}

// --- include, alter, delete

bool JanelaMovimento::confere(Gravacao gravacao)
{
    return campos_.confere(gravacao);
}

void JanelaMovimento::btnIncluir_Click()
{
    if (!confere(Gravacao::Inclusao)) {
        return;
    }
    inclui();
    limpa();
    recalcula();
    preenche();
    campos_.foca();
}

void JanelaMovimento::inclui()
{
    if (tabela().razao != nullptr) {
        LancaNoRazao(*tabela().razao, {.dono = dono(),
                                       .data = campos_.texto(u"txtData"),
                                       .descricao = campos_.texto(u"txtDescricao"),
                                       .valor = campos_.texto(u"txtValor"),
                                       .operacao = operacao()});
        return;
    }
    AcrescentaLinha(tabela().tabela.toString(),
                    [this](dao::Recordset &linha) { campos_.grava(linha, Gravacao::Inclusao); });
}

void JanelaMovimento::btnAlterar_Click()
{
    if (movimento_.cliqueCopia || alterando()) {
        salva();
    } else {
        comeca();
    }
}

void JanelaMovimento::comeca()
{
    const int linha = linhaDe(codigo());
    if (linha < 0) {
        return;
    }
    copia(lista().item(linha));
    trava(true);
    campos_.foca();
}

void JanelaMovimento::copia(const ui::ListItem &linha)
{
    for (const Campo &campo : movimento_.campos) {
        if (const int coluna = colunaDe(campo.coluna); coluna >= 0 && !campo.controle.isEmpty()) {
            campos_.poeTexto(campo.controle, linha.subItem(coluna));
        }
    }
    if (tabela().razao != nullptr) {
        copiaLado(linha);
    }
}

/// The empty side shows one blank.
void JanelaMovimento::copiaLado(const ui::ListItem &linha)
{
    const QString entrada = linha.subItem(colunaDe(u"Entrada"));
    const QString saida = linha.subItem(colunaDe(u"Saida"));
    const bool entrou = entrada != u" ";
    campos_.poeTexto(entrou ? u"optEntrada" : u"optSaida", u"-1"_s);
    campos_.poeTexto(u"txtValor", entrou ? entrada : saida);
}

int JanelaMovimento::colunaDe(QStringView coluna) const
{
    const auto colunas = tabela().lista.colunas;
    const auto achada = std::ranges::find(colunas, coluna, &ColunaLista::coluna);
    return achada == colunas.end() ? -1 : static_cast<int>(achada - colunas.begin());
}

void JanelaMovimento::salva()
{
    const QString alterado = codigo();
    if (alterado.isEmpty()) {
        avisa(movimento_.semCodigo);
        return;
    }
    const bool semConferir = movimento_.localizaAntesDeConferir && !linhaGravada();
    if (!semConferir && !confere(Gravacao::Alteracao)) {
        return;
    }
    if (auto linha = linhaGravada()) {
        linha->Edit();
        altera(*linha);
        linha->Update();
        linha->Close();
    } else if (avisa(movimento_.naoLocalizado)) {
        return;
    }
    recalcula();
    termina(alterado);
}

void JanelaMovimento::altera(dao::Recordset &linha)
{
    campos_.grava(linha, Gravacao::Alteracao);
    if (tabela().razao != nullptr) {
        const bool entrou = operacao() == Operacao::Entrada;
        linha[entrou ? u"Entrada" : u"Saida"] = campos_.texto(u"txtValor");
        linha[entrou ? u"Saida" : u"Entrada"] = Null{};
    }
}

/// The row of the code; none where it is gone.
std::optional<dao::Recordset> JanelaMovimento::linhaGravada() const
{
    dao::Recordset linha =
        DBDados->OpenRecordset(u"SELECT * FROM "_s + tabela().tabela + u" WHERE Codigo = "_s + codigo());
    if (linha.Eof()) {
        return std::nullopt;
    }
    return linha;
}

/// The end of a change, written or given up. The row stays chosen; one that is told by the selection is known by its
/// code alone once the list has been emptied.
void JanelaMovimento::termina(const QString &alterado)
{
    preenche();
    escolhe(alterado);
    if (alterando()) {
        limpa();
        trava(false);
        lista().setFocus();
    }
}

void JanelaMovimento::btnExcluir_Click()
{
    const QString excluido = codigo();
    if (!temCodigo(excluido) || !ui::Confirm(u"Excluir o Registro Selecionado"_s, NomeEmpresa)) {
        return;
    }
    const QString daTabela = u"DELETE * FROM "_s + tabela().tabela + u" WHERE Codigo = "_s;
    DBDados->Execute((tabela().exclusao.isEmpty() ? daTabela : tabela().exclusao.toString()) + excluido);
    recalcula();
    preenche();
}

void JanelaMovimento::btnVoltar_Click()
{
    if (alterando()) {
        termina(codigo());
    } else {
        Unload();
    }
}

void JanelaMovimento::limpa()
{
    campos_.limpa();
}

void JanelaMovimento::recalcula()
{
    if (tabela().razao != nullptr) {
        lista().clear(); // it would keep every row as it stood, only to be filled anew
        RecalculaRazao(*tabela().razao, dono());
    }
}

Operacao JanelaMovimento::operacao() const
{
    return campos_.texto(u"optEntrada") == u"0" ? Operacao::Saida : Operacao::Entrada;
}

// --- the state

bool JanelaMovimento::alterando() const
{
    const auto *botao = findChild<QAbstractButton *>(u"btnAlterar"_s);
    return botao != nullptr && botao->text() == salvar;
}

void JanelaMovimento::trava(bool alterando)
{
    const auto mostra = [alterando](QAbstractButton *botao, const QString &legenda) {
        if (alterando) {
            botao->setProperty(propLegenda, botao->text());
        }
        botao->setText(alterando ? legenda : botao->property(propLegenda).toString());
    };
    mostra(botao(u"btnAlterar"_s), salvar);
    mostra(botao(u"btnVoltar"_s), cancelar);
    campos_.controle(movimento_.travado)->setEnabled(!alterando);
    for (const QString &nome : {u"btnIncluir"_s, u"btnExcluir"_s}) {
        ui::enableIf(!alterando, botao(nome), u"Salve ou cancele a alteração"_s);
    }
}

/// The code that a change and a deletion are for; "" with nothing clicked.
QString JanelaMovimento::codigo() const
{
    if (!movimento_.codigo.isEmpty()) {
        return campos_.texto(movimento_.codigo);
    }
    const int linha = lista().selectedRow();
    return linha < 0 ? QString() : lista().item(linha).text();
}

/// The row of a code, or -1 where the list does not show it.
int JanelaMovimento::linhaDe(const QString &codigo) const
{
    if (!temCodigo(codigo)) {
        return -1;
    }
    const auto linhas = lista().rowsWhere(0, [&](const QString &texto) { return texto == codigo; });
    return linhas.empty() ? -1 : linhas.front();
}

QAbstractButton *JanelaMovimento::botao(const QString &nome) const
{
    return qobject_cast<QAbstractButton *>(campos_.controle(nome));
}

} // namespace core
