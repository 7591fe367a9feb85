// Opens and closes orders without end on the program folder given as argument, each operation as one unit, as the
// windows do it. Tells each finished one on its standard output: "ABERTA code" and "FECHADA code form". The crash test
// kills it while it works.
#include "workorders/abertura.h"
#include "workorders/fechamento.h"

#include "core/config.h"
#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace workorders;

namespace
{

void tell(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

NovaOrdem newOrder()
{
    NovaOrdem order;
    order.codCliente = u"1"_s;
    order.codVeiculo = u"0001"_s;
    order.km = u"1000"_s;
    order.valor = u"100,00"_s;
    order.itens = {{u"0001"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"30,00"_s, u"60,00"_s},
                   {u"0002"_s, u"S"_s, u"01"_s, u"REVISÃO"_s, u"30,00"_s, u"30,00"_s},
                   {u"0000"_s, u"A"_s, u"01"_s, u"ESTOPA"_s, u"10,00"_s, u"10,00"_s}};
    return order;
}

Fechamento closing(qint32 code, FormaPagamento form)
{
    Fechamento closing;
    closing.codigo = runtime::Format(code, u"0000");
    closing.nomeCliente = u"MARIA"_s;
    closing.codCliente = u"1"_s;
    closing.total = u"100,00"_s;

    auto &payment = closing.pagamento;
    const auto today = runtime::Format(runtime::Today(), u"dd/mm/yyyy");
    payment.forma = form;
    payment.valor = payment.valorCheque = u"100,00"_s;
    payment.vencimento = today;
    payment.parcelas = {{u"01"_s, today, u"50,00"_s, u"DINHEIRO À VISTA"_s},
                        {u"02"_s, today, u"50,00"_s, u"CHEQUE PRÉ"_s}};
    closing.numerosCheques = {u"10"_s, u"11"_s};
    closing.pedeCheque = [](const ParcelaOS &) { return Fechamento::DadosCheque{u"BANCO"_s, u"1"_s, u"12"_s}; };
    return closing;
}

qint32 open()
{
    const dao::Unit unit;
    return AbreOrdem(newOrder());
}

void close(qint32 code, FormaPagamento form)
{
    const dao::Unit unit;
    FechaOrdem(closing(code, form));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto silent = [](const QString &) {};
    core::App::setPath(QCoreApplication::arguments().value(1));
    core::ArquivoINI = core::App::Path() + u"/config.ini"_s;
    core::ArquivoDB = core::App::Path() + u"/DADOS/DADOS.MDB"_s;
    core::AbreOuCriaBanco(silent);
    core::CriarDB(silent);
    tell(u"PRONTO"_s);

    for (int turn = 0;; ++turn) {
        const auto code = open();
        tell(u"ABERTA %1"_s.arg(code));
        const auto form = static_cast<FormaPagamento>(turn % 6);
        close(code, form);
        tell(u"FECHADA %1 %2"_s.arg(code).arg(turn % 6));
    }
}
