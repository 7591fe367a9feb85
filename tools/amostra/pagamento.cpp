#include "tools/amostra/pagamento.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "platform/runtime/runtime.h"
#include "tools/amostra/catalogo.h"
#include "tools/amostra/documentos.h"
#include "tools/amostra/oficina.h"
#include "workorders/plano.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;
using workorders::Fechamento;
using workorders::FormaPagamento;
using workorders::ParcelaOS;

namespace amostra
{

namespace
{

QString emDias(int dias)
{
    return runtime::Format(runtime::DateAdd(u"d", dias, runtime::Today()), core::mascaraData);
}

QString contaCorrente(Sorteio &sorteio)
{
    const QString numero = Digitos(sorteio.abaixo(100'000), 5);
    return numero + u'-' + QString::number(sorteio.entre(0, 9));
}

QString numeroDeCheque(Sorteio &sorteio)
{
    return Digitos(sorteio.abaixo(1'000'000), 6);
}

Fechamento::DadosCheque cheque(Sorteio &sorteio)
{
    return {sorteio.um(bancos()).toString(), contaCorrente(sorteio), numeroDeCheque(sorteio)};
}

qint64 emCentavos(const QString &reais)
{
    return std::llround(runtime::CDbl(reais) * 100);
}

std::vector<ParcelaOS> plano(const Fechamento &f, int parcelas)
{
    return workorders::PlanoParcelas(f.pagamento.valor, parcelas, u"0"_s, true, runtime::Today());
}

// --- one function a payment form

/// The discount rounds the sum down to whole tens, on every fifth order that is large enough to bear it.
void preparaAVista(Fechamento &f, Sorteio &sorteio)
{
    const qint64 centavos = emCentavos(f.total);
    const qint64 desconto = centavos % 1'000;
    if (!sorteio.chance(20) || desconto == 0 || desconto * 20 > centavos) {
        return;
    }
    f.desconto = Reais(desconto);
    f.pagamento.valor = Reais(centavos - desconto);
}

void preparaChequePre(Fechamento &f, Sorteio &sorteio)
{
    const Fechamento::DadosCheque dados = cheque(sorteio);
    f.pagamento.banco = dados.banco;
    f.pagamento.conta = dados.conta;
    f.pagamento.numeroCheque = dados.numero;
    f.pagamento.valorCheque = f.total;
    f.pagamento.vencimento = emDias(sorteio.entre(1, 3) * 15);
}

void preparaCarne(Fechamento &f, Sorteio &sorteio)
{
    f.pagamento.parcelas = plano(f, sorteio.entre(1, 6));
}

void preparaCheques(Fechamento &f, Sorteio &sorteio)
{
    f.pagamento.banco = sorteio.um(bancos()).toString();
    f.pagamento.conta = contaCorrente(sorteio);
    f.pagamento.parcelas = plano(f, sorteio.entre(2, 5));
    for (std::size_t i = 0; i < f.pagamento.parcelas.size(); ++i) {
        f.numerosCheques.push_back(numeroDeCheque(sorteio));
    }
}

void preparaFiado(Fechamento &f, Sorteio &sorteio)
{
    f.pagamento.vencimento = emDias(sorteio.entre(1, 6) * 10);
}

/// A third at once, a third on credit, the rest by a cheque: a plan with every document.
void preparaPersonalizado(Fechamento &f, Sorteio &sorteio)
{
    const qint64 centavos = emCentavos(f.total);
    const qint64 terco = centavos / 3;
    f.pagamento.parcelas = {
        {u"01"_s, emDias(0), Reais(terco), workorders::documentoAVista.toString()},
        {u"02"_s, emDias(30), Reais(terco), workorders::documentoAPrazo.toString()},
        {u"03"_s, emDias(60), Reais(centavos - terco - terco), workorders::documentoCheque.toString()},
    };
    f.pedeCheque = [dados = cheque(sorteio)](const ParcelaOS &) { return dados; };
}

struct Forma {
    FormaPagamento forma;
    int porCento;
    void (*prepara)(Fechamento &, Sorteio &);
};

constexpr std::array<Forma, 6> formas{{
    {FormaPagamento::AVista, 45, preparaAVista},
    {FormaPagamento::ChequePre, 12, preparaChequePre},
    {FormaPagamento::Carne, 15, preparaCarne},
    {FormaPagamento::Cheques, 10, preparaCheques},
    {FormaPagamento::Fiado, 12, preparaFiado},
    {FormaPagamento::Personalizado, 6, preparaPersonalizado},
}};

} // namespace

Fechamento FechamentoDe(const workorders::NovaOrdem &ordem, qint32 codigo, FormaPagamento forma, Sorteio &sorteio)
{
    Fechamento f;
    f.codigo = runtime::Format(codigo, core::mascaraCodigo);
    f.codCliente = ordem.codCliente;
    f.nomeCliente = core::LocalizaCampo(u"Nome"_s, u"Clientes"_s, u"Codigo = "_s + ordem.codCliente);
    f.total = ordem.valor;
    f.pagamento.forma = forma;
    f.pagamento.valor = ordem.valor;
    formas.at(static_cast<std::size_t>(forma)).prepara(f, sorteio);
    return f;
}

std::vector<FormaPagamento> FormasSorteadas(int quantas, Sorteio &sorteio)
{
    std::vector<FormaPagamento> sorteadas;
    for (const Forma &forma : formas) {
        const int desta = std::max(1, quantas * forma.porCento / 100);
        sorteadas.insert(sorteadas.end(), static_cast<std::size_t>(desta), forma.forma);
    }
    sorteadas.resize(static_cast<std::size_t>(quantas), FormaPagamento::AVista);
    sorteio.embaralha(sorteadas);
    return sorteadas;
}

} // namespace amostra
