#include "tools/cep/postais.h"

#include "platform/dao/databasedraft.h"
#include "platform/files/replacefile.h"
#include "platform/runtime/value.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace ceps
{

namespace
{

struct Coluna {
    QStringView nome;
    int tamanho;
};

constexpr auto nomeDaTabela = u"CEPS";
constexpr qsizetype algarismosDoCEP = 8;
constexpr qsizetype hifenDoCEP = 5;

// Type, a blank and street together fit the registers' address of 200 characters.
constexpr std::array<Coluna, 6> colunas{
    {{u"CEP", algarismosDoCEP}, {u"Tipo", 36}, {u"Rua", 150}, {u"Bairro", 80}, {u"Cidade", 80}, {u"Estado", 2}}};

constexpr qint64 linhasPorAviso = 1'000;

QString nomes(const QString &entre)
{
    QStringList lista;
    for (const Coluna &coluna : colunas) {
        lista.append(coluna.nome.toString());
    }
    return lista.join(entre);
}

QString soAlgarismos(QString cep)
{
    if (cep.size() == algarismosDoCEP + 1 && cep[hifenDoCEP] == u'-') {
        cep.remove(hifenDoCEP, 1);
    }
    return cep;
}

bool ehCEP(const QString &cep)
{
    return cep.size() == algarismosDoCEP &&
           std::all_of(cep.begin(), cep.end(), [](QChar letra) { return letra >= u'0' && letra <= u'9'; });
}

void confereQuantidade(const QStringList &linha, int numero)
{
    if (linha.size() != static_cast<qsizetype>(colunas.size())) {
        throw Erro(
            numero,
            u"são esperadas %1 colunas (%2) e há %3."_s.arg(colunas.size()).arg(nomes(u", "_s)).arg(linha.size()));
    }
}

void confereTamanhos(const QStringList &linha, int numero)
{
    for (size_t i = 0; i < colunas.size(); ++i) {
        const qsizetype tamanho = linha[static_cast<qsizetype>(i)].size();
        if (tamanho > colunas[i].tamanho) {
            throw Erro(
                numero,
                u"%1 tem %2 caracteres e só cabem %3."_s.arg(colunas[i].nome).arg(tamanho).arg(colunas[i].tamanho));
        }
    }
}

/// The line as the table takes it, or the reason why it can't be taken.
QStringList confere(QStringList linha, int numero)
{
    confereQuantidade(linha, numero);
    linha[0] = soAlgarismos(linha[0]);
    if (!ehCEP(linha[0])) {
        throw Erro(numero, u"o CEP '%1' não tem 8 algarismos."_s.arg(linha[0]));
    }
    confereTamanhos(linha, numero);
    return linha;
}

bool ehCabecalho(const QStringList &linha)
{
    return linha[0].compare(colunas[0].nome, Qt::CaseInsensitive) == 0;
}

/// Columns in another order would fill the database with wrong addresses, so a heading has to name them as they are.
void confereCabecalho(const QStringList &linha, int numero)
{
    const QString esperado = nomes(u";"_s);
    if (linha.join(u';').compare(esperado, Qt::CaseInsensitive) != 0) {
        throw Erro(numero, u"o cabeçalho deve ser %1."_s.arg(esperado));
    }
}

/// As the table takes them: an empty column is Null.
std::vector<runtime::Value> valores(const QStringList &linha)
{
    std::vector<runtime::Value> lista;
    for (const QString &texto : linha) {
        lista.push_back(texto.isEmpty() ? runtime::Value(runtime::Null{}) : runtime::Value(texto));
    }
    return lista;
}

void avisa(const Andamento &andamento, const LeitorCSV &leitor, qint64 ceps)
{
    if (!andamento(leitor.porcento(), ceps)) {
        throw Erro(u"Interrompido."_s);
    }
}

qint64 gravaLinhas(LeitorCSV &leitor, dao::RowLoader &tabela, const Andamento &andamento)
{
    bool primeira = true;
    qint64 ceps = 0;
    while (const std::optional<QStringList> linha = leitor.proxima()) {
        if (std::exchange(primeira, false) && ehCabecalho(*linha)) {
            confereCabecalho(*linha, leitor.linha());
            continue;
        }
        tabela.append(valores(confere(*linha, leitor.linha())));
        if (++ceps % linhasPorAviso == 0) {
            avisa(andamento, leitor, ceps);
        }
    }
    return ceps;
}

qint64 preenche(dao::Database &banco, QFile &entrada, Codificacao codificacao, const Andamento &andamento)
{
    banco.AppendTableDef(Tabela());
    LeitorCSV leitor(entrada, codificacao);
    auto tabela = banco.LoadRows(QString::fromUtf16(nomeDaTabela));
    const qint64 ceps = gravaLinhas(leitor, tabela, andamento);
    if (ceps == 0) {
        throw Erro(u"O arquivo não tem nenhum CEP."_s);
    }
    tabela.finish();
    avisa(andamento, leitor, ceps);
    return ceps;
}

void confereArquivos(const Pedido &pedido)
{
    const QFileInfo saida(pedido.saida);
    if (!saida.absoluteDir().exists()) {
        throw Erro(u"Não foi possível gravar '%1': a pasta não existe."_s.arg(pedido.saida));
    }
    if (saida.exists() && saida == QFileInfo(pedido.entrada)) {
        throw Erro(u"A entrada e a saída são o mesmo arquivo."_s);
    }
    if (saida.exists() && !saida.isFile()) {
        throw Erro(u"'%1' não é um arquivo."_s.arg(pedido.saida));
    }
    if (saida.exists() && !pedido.substitui) {
        throw Erro(u"O arquivo '%1' já existe (para substituir use --substitui)."_s.arg(pedido.saida));
    }
}

} // namespace

dao::TableDef Tabela()
{
    dao::TableDef nova(QString::fromUtf16(nomeDaTabela));
    for (const Coluna &coluna : colunas) {
        dao::Field campo{coluna.nome.toString(), dao::FieldType::Text};
        campo.size = coluna.tamanho;
        nova.append(campo);
    }
    return nova;
}

qint64 fazBanco(const Pedido &pedido, const Andamento &andamento)
{
    confereArquivos(pedido);
    QFile entrada(pedido.entrada);
    if (!entrada.open(QIODevice::ReadOnly)) {
        throw Erro(u"Não foi possível abrir '%1': %2"_s.arg(pedido.entrada, entrada.errorString()));
    }
    files::clearLeftovers(pedido.saida);
    dao::DatabaseDraft rascunho(pedido.saida);
    const qint64 ceps = preenche(*rascunho.database(), entrada, pedido.codificacao, andamento);
    rascunho.examine();
    confereArquivos(pedido); // somebody else may have made it meanwhile
    rascunho.putInPlace();
    return ceps;
}

} // namespace ceps
