#include "tests/finance/fiados.h"

#include "finance/finance.h"
#include "registers/registers.h"

using namespace Qt::StringLiterals;

namespace fiados
{

const QString nulo = u"<Null>"_s;

void Case::prepara()
{
    finance::registerForms();
    registers::registerForms();
    cadastro::standIn(u"frmOSConsulta"_s, {u"lblCodigo"_s});
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    boxes_->title(u"Tarvelo"_s);
}

void Case::termina()
{
    boxes_.reset();
    program_.reset();
    janela_ = nullptr;
}

qint32 Case::ordem(qint32 veiculo)
{
    program_->sql(u"INSERT INTO OrdemServico (CodVeiculo, Pago) VALUES (%1, False)"_s.arg(veiculo));
    return program_->rows(u"SELECT MAX(Codigo) FROM OrdemServico"_s).front().front().toInt();
}

void Case::pendente(qint32 cliente, const QString &codOs, const QString &valor, const QString &vencimento, bool pago)
{
    program_->sql(u"INSERT INTO Fiados (CodOs, CodCliente, Data, Valor, Vencimento, Pago) VALUES (%1, %2, "
                  "#05/10/2024#, %3, #%4#, %5)"_s.arg(codOs, QString::number(cliente), valor, vencimento,
                                                      pago ? u"True"_s : u"False"_s));
}

void Case::tresSituacoes()
{
    for (const QString &nome : {u"ANA"_s, u"BRUNO"_s, u"CARLA"_s}) {
        const qint32 cliente = program_->customer(nome);
        const QString veiculo = nome.left(3) + u"1D23"_s;
        pendente(cliente, QString::number(ordem(program_->vehicle(cliente, veiculo))), u"100"_s, u"06/20/2024"_s,
                 nome == u"BRUNO");
        program_->sql(u"UPDATE Clientes SET Fone1 = '(17)3232-%1', Celular = '(17)98888-%1' WHERE Codigo = %2"_s.arg(
            QString::number(1111 * cliente), QString::number(cliente)));
    }
}

void Case::lancamento(qint32 cliente, const QString &data, const QString &descricao, const QString &entrada,
                      const QString &saida, const QString &saldo)
{
    program_->sql(u"INSERT INTO ContaFiado (CodCliente, Data, Descricao, Entrada, Saida, Saldo) VALUES (%1, #%2#, "
                  "'%3', %4, %5, %6)"_s.arg(QString::number(cliente), data, descricao, entrada, saida, saldo));
}

} // namespace fiados
