#include "tools/amostra/origens.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "finance/livroorigem.h"
#include "platform/dao/recordset.h"
#include "platform/runtime/runtime.h"
#include "tools/amostra/ordens.h"
#include "tools/amostra/sorteio.h"
#include "tools/amostra/textos.h"

#include <array>

using namespace Qt::StringLiterals;

namespace amostra
{

namespace
{

constexpr double diasDoLivro = 120;
constexpr int comRegistro = 85; ///< of a hundred days
constexpr int comOutro = 15;    ///< and of those, the ones with a second row

constexpr auto origens = std::to_array<QStringView>({
    u"SERVIÇOS DO BALCÃO",
    u"VENDA DE PEÇAS",
    u"RECEBIMENTO DE CARNÊS",
    u"REVISÕES",
    u"FUNILARIA E PINTURA",
    u"SOCORRO NA RUA",
    u"CONTRATO DE FROTA",
    u"VENDA DE SUCATA",
});

/// Half a real is the smallest change that the counter gives.
QString valor(Sorteio &sorteio, int menor, int maior)
{
    return Reais(qint64{sorteio.entre(menor * 2, maior * 2)} * 50);
}

/// One of so many rows has it; "0,00" stands for the others, as the window puts it.
QString asVezes(Sorteio &sorteio, int porCento, int menor, int maior)
{
    return sorteio.chance(porCento) ? valor(sorteio, menor, maior) : Reais(0);
}

void incluiOrigem(Sorteio &sorteio, runtime::Date dia)
{
    const Textos textos{
        {u"txtData", runtime::Format(dia, core::mascaraData)},
        {u"txtOrigem", sorteio.um(origens).toString()},
        {u"txtDinheiro", valor(sorteio, 30, 900)},
        {u"txtAvista", asVezes(sorteio, 35, 80, 1'200)},
        {u"txtAPrazo", asVezes(sorteio, 25, 150, 1'800)},
        {u"txtDuplicata", asVezes(sorteio, 10, 400, 3'500)},
    };
    core::AcrescentaLinha(u"LivroOrigem"_s, [&textos](dao::Recordset &linha) {
        core::GravaCampos(linha, finance::camposDaOrigem, core::Gravacao::Inclusao, textos);
    });
}

} // namespace

int IncluiOrigens(const Oficina &oficina)
{
    Sorteio sorteio(oficina.tamanho.semente, sobreOrigens);
    int registros = 0;
    for (const runtime::Date &dia : DiasAbertos(oficina.hoje)) {
        if (dia.serial < oficina.hoje.serial - diasDoLivro || !sorteio.chance(comRegistro)) {
            continue;
        }
        for (int linhas = sorteio.chance(comOutro) ? 2 : 1; linhas > 0; --linhas) {
            incluiOrigem(sorteio, dia);
            ++registros;
        }
    }
    return registros;
}

} // namespace amostra
