#include "reports/relaaniversarios.h"

#include "core/funcoes.h"
#include "core/modos.h"
#include "platform/runtime/runtime.h"

#include <array>

namespace reports
{

using namespace core;
using namespace Qt::StringLiterals;

namespace
{

QString mes()
{
    return runtime::Format(runtime::Today(), u"mmmm");
}

QString consulta()
{
    return u"select Codigo, Nome, DataNascimento from Clientes where month(datanascimento)='"_s +
           runtime::Format(runtime::Today(), u"m") + u"'"_s;
}

int anoDe(const runtime::Value &data)
{
    return runtime::CInt(runtime::Format(data, u"yyyy"));
}

/// What the customer turns in this year.
QString comoIdade(const dao::Recordset &linha, int lugar)
{
    return QString::number(anoDe(runtime::Today()) - anoDe(linha.value(lugar)));
}

constexpr std::array colunas{
    ColunaLista{u"Código", 1000, u"Codigo", comoCodigo},
    ColunaLista{u"Nome Cliente", 5500, u"Nome", comoEsta},
    ColunaLista{u"Data Nasc.", 1500, u"DataNascimento", comoData},
    ColunaLista{u"Idade", 900, u"DataNascimento", comoIdade, Qt::AlignRight},
};
constexpr std::array<QStringView, 2> nenhum{u"", u"Registro não Localizado"};
constexpr Lista aniversariantes{.colunas = colunas, .vazia = nenhum};

constexpr std::array camposImpressos{CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2}, CampoDaLista{3}};
constexpr std::array linhasImpressas{LinhaImpressa{
    u"COD.CLI - NOME CLIENTE                                       - DATA NASC. - IDADE", camposImpressos}};
constexpr Pagina pagina{.titulo = u"ANIVERSARIANTES DO MÊS", .linhas = linhasImpressas};

TextosDaPagina textos()
{
    return {.linhas = {{{u"Aniv. do mês de..: "_s, mes()}}}};
}

constexpr std::array relatorios{Relatorio{
    .modo = modoRelaAniversarios,
    .titulo = u" - [Aniversariantes de %1]",
    .detalhe = mes,
    .lista = aniversariantes,
    .consulta = consulta,
    .pagina = unica<pagina>,
    .textos = textos,
}};

} // namespace

std::span<const Relatorio> relatoriosDeAniversarios()
{
    return relatorios;
}

} // namespace reports
