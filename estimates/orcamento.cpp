#include "estimates/orcamento.h"

#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "documents/documentogravado.h"
#include "platform/runtime/runtime.h"

namespace estimates
{

using namespace runtime;
using namespace core;
using namespace documents;
using namespace Qt::StringLiterals;

namespace
{

/// Whoever writes an estimate dates it.
void gravaColunas(dao::Recordset &linha, const Orcamento &orcamento)
{
    linha[u"Data"] = Hoje();
    linha[u"MarcaModelo"] = ValorOuNulo(orcamento.marca);
    linha[u"Ano"] = ValorOuNulo(orcamento.ano);
    linha[u"CodCliente"] = ValorOuNulo(orcamento.codCliente);
    linha[u"NomeCliente"] = ValorOuNulo(orcamento.nome);
    linha[u"Fone"] = ValorOuNulo(orcamento.fone);
    linha[u"Observacoes"] = ValorOuNulo(orcamento.observacoes);
    linha[u"Valor"] = orcamento.valor;
}

qint32 gravaOrcamento(const Orcamento &orcamento)
{
    auto linha = DBDados->OpenRecordset(u"Orcamento"_s);
    linha.AddNew();
    const qint32 numero = CLng(linha[u"Codigo"].Value());
    gravaColunas(linha, orcamento);
    linha.Update();
    linha.Close();
    return numero;
}

} // namespace

qint32 IncluiOrcamento(const Orcamento &orcamento)
{
    const qint32 numero = gravaOrcamento(orcamento);
    GravaItens(orcamentoGravado, numero, orcamento.itens);
    return numero;
}

std::optional<Orcamento> LeOrcamento(const QString &codigo)
{
    const auto linha = DBDados->OpenRecordset(u"SELECT * FROM Orcamento WHERE Codigo = "_s + codigo);
    if (linha.Eof()) {
        return std::nullopt;
    }
    const auto texto = [&linha](QStringView campo) { return NuloParaVazio(linha.value(campo)); };
    const auto formato = [&linha](QStringView campo, QStringView mascara) {
        return Format(linha.value(campo), mascara);
    };
    return Orcamento{.codigo = formato(u"Codigo", mascaraCodigo),
                     .data = formato(u"Data", mascaraData),
                     .marca = texto(u"MarcaModelo"),
                     .ano = texto(u"Ano"),
                     .codCliente = formato(u"CodCliente", mascaraCodigo),
                     .nome = texto(u"NomeCliente"),
                     .fone = texto(u"Fone"),
                     .observacoes = texto(u"Observacoes"),
                     .valor = formato(u"Valor", mascaraValor)};
}

bool AlteraOrcamento(qint32 numero, const Orcamento &orcamento)
{
    auto linha = DBDados->OpenRecordset(u"SELECT * FROM Orcamento WHERE Codigo = "_s + QString::number(numero));
    if (linha.Eof()) {
        return false;
    }
    linha.Edit();
    gravaColunas(linha, orcamento);
    linha.Update();
    return true;
}

} // namespace estimates
