#include "core/informacoes.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/boxes.h"
#include "platform/ui/forms.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

/// The text of the box: a label, a tab, the value and a line break for each field.
class Texto
{
public:
    explicit Texto(const dao::Recordset &linha) : linha_(linha) {}

    void campo(QStringView rotulo, QStringView nome) { valor(rotulo, NuloParaVazio(linha_.value(nome))); }
    void campo(QStringView rotulo, QStringView nome, QStringView mascara)
    {
        valor(rotulo, runtime::Format(linha_.value(nome), mascara));
    }
    void valor(QStringView rotulo, const QString &texto) { texto_ += rotulo + u'\t' + texto + u'\n'; }

    const QString &texto() const { return texto_; }

private:
    const dao::Recordset &linha_;
    QString texto_;
};

struct Linha {
    QStringView rotulo;
    QStringView campo;
};

void campos(Texto &texto, std::initializer_list<Linha> linhas)
{
    for (const Linha &linha : linhas) {
        texto.campo(linha.rotulo, linha.campo);
    }
}

QString consultaCliente(const QString &codigo)
{
    if (!runtime::IsNumeric(codigo)) {
        return {};
    }
    return u"SELECT Codigo, Nome, Endereco, Numero, Complemento, Bairro, Cidade, Fone1, Fone2, Celular, Observacoes "_s +
           u"FROM Clientes WHERE codigo = "_s + codigo;
}

QString consultaVeiculo(const QString &codigo)
{
    const QString consulta = u"SELECT Veiculos.*, Clientes.Nome FROM Veiculos, Clientes "_s +
                             u"WHERE Clientes.Codigo = Veiculos.CodCliente AND "_s;
    if (runtime::IsNumeric(codigo)) {
        return consulta + u"Veiculos.Codigo = "_s + codigo;
    }
    return consulta + u"Veiculos.Placas = '"_s + codigo + u"'"_s;
}

QString consultaPeca(const QString &codigo)
{
    return u"SELECT pecas.codigo, pecas.nome, pecas.MarcaModelo, pecas.ps, pecas.UM, pecas.ValorCusto, "_s +
           u"pecas.ValorVenda, pecas.EstoqueMinimo, pecas.ControlaEstoque, estoque.ESTOQUE FROM pecas, estoque "_s +
           u"WHERE pecas.CODIGO = estoque.CodPeca AND pecas.CODIGO = "_s + codigo + u" ORDER BY Estoque.Codigo DESC"_s;
}

void cliente(Texto &texto, const dao::Recordset &linha)
{
    texto.campo(u"Código Cliente:", u"Codigo", mascaraCodigo);
    texto.campo(u"Nome Cliente:", u"Nome");
    texto.valor(u"Endereço:",
                NuloParaVazio(linha.value(u"Endereco")) + u", "_s + NuloParaVazio(linha.value(u"Numero")));
    campos(texto, {{u"Complemento:", u"Complemento"},
                   {u"Bairro:", u"Bairro"},
                   {u"Cidade:", u"Cidade"},
                   {u"Fone1:", u"Fone1"},
                   {u"Fone2:", u"Fone2"},
                   {u"Celular:", u"Celular"},
                   {u"Observações:", u"Observacoes"}});
}

void veiculo(Texto &texto, const dao::Recordset & /*linha*/)
{
    texto.campo(u"Código:", u"Codigo", mascaraCodigo);
    campos(texto, {{u"Nome Cliente:", u"Nome"},
                   {u"Marca/Modelo:", u"MarcaModelo"},
                   {u"Ano:", u"Ano"},
                   {u"Cor:", u"Cor"},
                   {u"Placas:", u"Placas"},
                   {u"Combustível:", u"Combustivel"},
                   {u"Observações:", u"Observacoes"}});
}

QString quantidade(const runtime::Value &valor, int codigoUM)
{
    return runtime::IsNull(valor) ? QString() : FormataQuantidade(runtime::CDbl(valor), codigoUM);
}

constexpr int semUnidade = -1;

int unidadeDe(const dao::Recordset &linha)
{
    const runtime::Value um = linha.value(u"UM");
    return runtime::IsNull(um) ? semUnidade : runtime::CLng(um);
}

void peca(Texto &texto, const dao::Recordset &linha)
{
    const int um = unidadeDe(linha);
    texto.campo(u"Cód. Peça:", u"codigo", mascaraCodigo);
    texto.campo(u"Nome Peça:", u"nome");
    texto.campo(u"Aplicação:", u"MarcaModelo");
    texto.valor(u"Unidade Med.:", NomeDaUnidade(um));
    texto.campo(u"Valor Custo:", u"ValorCusto", mascaraValor);
    texto.campo(u"Valor Venda:", u"ValorVenda", mascaraValor);
    if (Verdadeiro(linha.value(u"ControlaEstoque"))) {
        texto.valor(u"Estoque Mín.:", quantidade(linha.value(u"EstoqueMinimo"), um));
        texto.valor(u"Estoque Atual:", quantidade(linha.value(u"ESTOQUE"), um));
    }
}

/// How each kind of record is found and told; by `TipoInformacao`.
struct Registro {
    QString (*consulta)(const QString &codigo);
    void (*escreve)(Texto &texto, const dao::Recordset &linha);
};

constexpr std::array<Registro, 3> registros{{
    {consultaCliente, cliente},
    {consultaVeiculo, veiculo},
    {consultaPeca, peca},
}};

} // namespace

void MostraInformacoes(TipoInformacao tipo, const QString &codigo)
{
    const Registro &registro = registros[static_cast<size_t>(tipo)];
    const QString consulta = registro.consulta(codigo);
    if (consulta.isEmpty()) {
        return;
    }
    const dao::Recordset linha = DBDados->OpenRecordset(consulta);
    if (linha.Eof()) {
        return;
    }
    Texto texto(linha);
    registro.escreve(texto, linha);
    ui::MsgBox(texto.texto(), ui::Icon::Information, NomeEmpresa);
}

bool PodeSerCodigo(const QString &texto)
{
    const auto numero = runtime::parseNumber(texto);
    return numero && std::abs(*numero) <= std::numeric_limits<qint32>::max();
}

std::optional<qint32> CodigoDoTexto(const QString &texto)
{
    if (!PodeSerCodigo(texto)) {
        return std::nullopt;
    }
    const double numero = runtime::CDbl(texto);
    return numero == std::floor(numero) ? std::optional(static_cast<qint32>(numero)) : std::nullopt;
}

void MostraOrdem(const QString &codigo)
{
    if (!PodeSerCodigo(codigo)) {
        return;
    }
    ModoChamada = modoUmaOS;
    CodigoConsulta = runtime::CLng(codigo);
    ui::Forms::instance().ShowAfresh(u"frmOSConsulta"_s);
}

} // namespace core
