#include "tools/amostra/cadastros.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"
#include "registers/registro.h"
#include "tools/amostra/catalogo.h"
#include "tools/amostra/documentos.h"
#include "tools/amostra/pessoas.h"
#include "tools/amostra/textos.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

runtime::Date diasAntes(const Oficina &oficina, int dias)
{
    return {oficina.hoje.serial - dias};
}

constexpr int porCentoDeEmpresas = 8;

constexpr auto limites = std::to_array<QStringView>({
    u"0,00",
    u"0,00",
    u"300,00",
    u"500,00",
    u"1.000,00",
    u"2.500,00",
    u"5.000,00",
});

QString rg(Sorteio &sorteio)
{
    const QString digitos = Digitos(sorteio.abaixo(100'000'000), 8);
    return digitos.left(2) + u'.' + digitos.mid(2, 3) + u'.' + digitos.mid(5) + u'-' +
           QString::number(sorteio.entre(0, 9));
}

QString nascimento(Sorteio &sorteio, const Oficina &oficina)
{
    const int anos = sorteio.entre(20, 80);
    return runtime::Format(diasAntes(oficina, anos * 365 + sorteio.entre(0, 364)), core::mascaraData);
}

QString inscricaoEstadual(Sorteio &sorteio)
{
    return Digitos(sorteio.abaixo(1'000'000'000'000), 12);
}

/// The documents of people and companies, none given twice.
struct Documentos {
    SemRepetir cpf;
    SemRepetir cnpj;
};

Textos identidade(Sorteio &sorteio, const Oficina &oficina, Documentos &documentos)
{
    if (sorteio.chance(porCentoDeEmpresas)) {
        const QString nome = NomeDeEmpresa(sorteio, sorteio.um(ramos()));
        return {{u"txtNome", nome},
                {u"txtRG", inscricaoEstadual(sorteio)},
                {u"txtCPF", Cnpj(documentos.cnpj.novo(sorteio, 99'999'999))}};
    }
    const QString nome = NomeDePessoa(sorteio);
    return {{u"txtNome", nome},
            {u"txtRG", rg(sorteio)},
            {u"txtCPF", Cpf(documentos.cpf.novo(sorteio, 999'999'998))},
            {u"txtDataNascimento", nascimento(sorteio, oficina)}};
}

void acrescentaEndereco(Textos &textos, Sorteio &sorteio, const Cidade &cidade)
{
    textos.acrescenta(u"txtEndereco", sorteio.um(logradouros()).toString());
    textos.acrescenta(u"txtNumero", QString::number(sorteio.entre(1, 4999)));
    textos.acrescenta(u"txtComplemento", sorteio.chance(20) ? u"APTO %1"_s.arg(sorteio.entre(1, 184)) : QString());
    textos.acrescenta(u"txtBairro", sorteio.um(bairros()).toString());
    textos.acrescenta(u"txtCidade", cidade.nome.toString());
    textos.acrescenta(u"cboEstado", cidade.estado.toString());
    textos.acrescenta(u"txtCEP", Cep(sorteio, cidade));
    textos.acrescenta(u"txtPontoReferencia", AsVezes(sorteio, 15, referencias()));
}

void acrescentaContato(Textos &textos, Sorteio &sorteio, const Cidade &cidade)
{
    textos.acrescenta(u"txtFone1", FoneFixo(sorteio, cidade));
    textos.acrescenta(u"txtFone2", sorteio.chance(10) ? FoneFixo(sorteio, cidade) : QString());
    textos.acrescenta(u"txtCelular", sorteio.chance(60) ? FoneCelular(sorteio, cidade) : QString());
    textos.acrescenta(u"txtEmail", sorteio.chance(35) ? Email(sorteio, textos(u"txtNome")) : QString());
}

qint32 incluiCliente(Sorteio &sorteio, const Oficina &oficina, Documentos &documentos)
{
    Textos textos = identidade(sorteio, oficina, documentos);
    const Cidade &cidade = CidadeDeCliente(sorteio);
    acrescentaEndereco(textos, sorteio, cidade);
    acrescentaContato(textos, sorteio, cidade);
    textos.acrescenta(u"txtLimite", sorteio.um(limites).toString());
    return registers::IncluiRegistro(registers::registroClientes(), textos);
}

// --- vehicles

constexpr int primeiroFlex = 2004;

QString combustivel(Sorteio &sorteio, const Modelo &modelo, int ano)
{
    if (modelo.diesel) {
        return u"DIESEL"_s;
    }
    if (ano >= primeiroFlex) {
        return u"FLEX"_s;
    }
    return sorteio.chance(25) ? u"ÁLCOOL"_s : u"GASOLINA"_s;
}

/// No car is younger than its registration.
int anoCorrente()
{
    return runtime::toDateTime(runtime::Today()).date().year();
}

/// Seventeen characters, as the makers stamp them.
QString chassi(Sorteio &sorteio)
{
    static constexpr auto inicios = std::to_array<QStringView>({u"9BWZZZ", u"9BD146", u"9BGSC0", u"9BFZZZ", u"93YBB0"});
    const QString inicio = sorteio.um(inicios).toString();
    const QString meio = Digitos(sorteio.abaixo(1'000), 3);
    return inicio + meio + u"CT"_s + Digitos(sorteio.abaixo(1'000'000), 6);
}

Veiculo incluiVeiculo(Sorteio &sorteio, SemRepetir &placas, qint32 codCliente)
{
    const auto lugar = static_cast<std::size_t>(sorteio.abaixo(modelos().size()));
    const Modelo &modelo = modelos()[lugar];
    const int ano = std::min(sorteio.entre(modelo.primeiroAno, modelo.ultimoAno), anoCorrente());
    const int anoModelo = ano + (sorteio.chance(40) ? 1 : 0);
    const Textos textos{
        {u"txtCodCliente", QString::number(codCliente)},
        {u"cboMarca", modelo.nome.toString()},
        {u"txtAno", u"%1/%2"_s.arg(ano).arg(anoModelo)},
        {u"txtCor", sorteio.um(cores()).toString()},
        {u"txtPlaca", Placa(placas.novo(sorteio, placasPossiveis - 1))},
        {u"txtCombustivel", combustivel(sorteio, modelo, ano)},
        {u"txtChassi", sorteio.chance(30) ? chassi(sorteio) : QString()},
    };
    const qint32 codigo = registers::IncluiRegistro(registers::registroVeiculos(), textos);
    return {codigo, codCliente, static_cast<int>(lugar)};
}

int diasAntesDoCadastro(const Oficina &oficina, int cliente)
{
    return diasDeCadastro - static_cast<int>(qint64{cliente} * diasDeCadastro / oficina.tamanho.clientes);
}

/// How many vehicles there were on each day, for the orders of that day to choose from.
void anotaDia(Oficina &oficina, int dias)
{
    oficina.veiculosAteODia[static_cast<std::size_t>(dias)] = static_cast<int>(oficina.veiculos.size());
}

void completaDias(std::vector<int> &ateODia)
{
    for (std::size_t dias = ateODia.size() - 1; dias > 0; --dias) {
        ateODia[dias - 1] = std::max(ateODia[dias - 1], ateODia[dias]);
    }
}

} // namespace

void IncluiClientes(Oficina &oficina, Resumo &resumo, const Progresso &progresso)
{
    Sorteio deClientes(oficina.tamanho.semente, sobreClientes);
    Sorteio deVeiculos(oficina.tamanho.semente, sobreVeiculos);
    Documentos documentos;
    SemRepetir placas;
    oficina.veiculosAteODia.assign(diasDeCadastro + 1, 0);
    for (int cliente = 0; cliente < oficina.tamanho.clientes; ++cliente) {
        const int dias = diasAntesDoCadastro(oficina, cliente);
        runtime::setClock(diasAntes(oficina, dias));
        const qint32 codigo = incluiCliente(deClientes, oficina, documentos);
        const int carros = cliente % 4 == 3 ? 2 : 1;
        for (int carro = 0; carro < carros; ++carro) {
            oficina.veiculos.push_back(incluiVeiculo(deVeiculos, placas, codigo));
        }
        anotaDia(oficina, dias);
        progresso(u"Clientes e veículos"_s, cliente + 1, oficina.tamanho.clientes);
    }
    completaDias(oficina.veiculosAteODia);
    resumo.clientes = oficina.tamanho.clientes;
    resumo.veiculos = static_cast<int>(oficina.veiculos.size());
}

} // namespace amostra
