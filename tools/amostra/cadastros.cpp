#include "tools/amostra/cadastros.h"

#include "core/banco.h"
#include "core/combos.h"
#include "platform/dao/database.h"
#include "registers/registro.h"
#include "shell/operadores.h"
#include "tools/amostra/catalogo.h"
#include "tools/amostra/documentos.h"
#include "tools/amostra/pessoas.h"
#include "tools/amostra/textos.h"

#include <array>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

constexpr int quantosFornecedores = 24;

void incluiFornecedor(Sorteio &sorteio, SemRepetir &documentos)
{
    const Cidade &cidade = sorteio.um(cidades());
    const QString nome = NomeDeEmpresa(sorteio, sorteio.um(ramosDeFornecedor()));
    const Textos textos{
        {u"txtNome", nome},
        {u"txtContato", NomeDePessoa(sorteio)},
        {u"txtEndereco", sorteio.um(logradouros()).toString()},
        {u"txtNumero", QString::number(sorteio.entre(10, 4000))},
        {u"txtBairro", sorteio.um(bairros()).toString()},
        {u"txtCidade", cidade.nome.toString()},
        {u"cboEstado", cidade.estado.toString()},
        {u"txtCEP", Cep(sorteio, cidade)},
        {u"txtFone1", FoneFixo(sorteio, cidade)},
        {u"txtCelular", FoneCelular(sorteio, cidade)},
        {u"txtCPF", Cnpj(documentos.novo(sorteio, 99'999'999))},
        {u"txtEmail", Email(sorteio, nome)},
    };
    registers::IncluiRegistro(registers::registroFornecedores(), textos);
}

// --- completion lists

struct Lista {
    core::ListaCombo numero;
    std::span<const QStringView> entradas;
};

void incluiEntrada(core::ListaCombo lista, const QString &texto)
{
    core::AcrescentaLinha(u"Combos"_s, [&](dao::Recordset &linha) {
        linha[u"Codigo"] = static_cast<qint16>(lista);
        linha[u"Texto"] = texto;
    });
}

template<class Tabela>
void incluiNomes(core::ListaCombo lista, const Tabela &tabela)
{
    for (const auto &entrada : tabela) {
        incluiEntrada(lista, entrada.nome.toString());
    }
}

constexpr auto operadores = std::to_array<OperadorDaAmostra>({
    {u"1", u"ADMINISTRADOR", u"123456", true},
    {u"2", u"BALCÃO", u"222222", false},
    {u"3", u"CAIXA", u"333333", false},
});

} // namespace

std::span<const OperadorDaAmostra> Operadores()
{
    return operadores;
}

void IncluiOperadores()
{
    for (const OperadorDaAmostra &operador : operadores) {
        shell::incluiOperador(
            {operador.codigo.toString(), operador.nome.toString(), operador.senha.toString(), operador.admin});
    }
}

void IncluiListas()
{
    incluiNomes(core::ListaCombo::MarcaModelo, modelos());
    incluiNomes(core::ListaCombo::DescricaoItens, servicos());
    const std::array<Lista, 3> listas{{
        {core::ListaCombo::Bancos, bancos()},
        {core::ListaCombo::DescricaoItens, avulsos()},
        {core::ListaCombo::Mecanicos, mecanicos()},
    }};
    for (const Lista &lista : listas) {
        for (const QStringView entrada : lista.entradas) {
            incluiEntrada(lista.numero, entrada.toString());
        }
    }
    for (const DespesaMensal &despesa : despesas()) {
        incluiEntrada(core::ListaCombo::DescricaoContas, despesa.descricao.toString());
    }
}

int IncluiFornecedores(const Oficina &oficina)
{
    Sorteio sorteio(oficina.tamanho.semente, sobreFornecedores);
    SemRepetir documentos;
    for (int i = 0; i < quantosFornecedores; ++i) {
        incluiFornecedor(sorteio, documentos);
    }
    return quantosFornecedores;
}

} // namespace amostra
