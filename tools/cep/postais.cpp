#include "tools/cep/postais.h"

#include "platform/dao/database.h"
#include "platform/dao/unit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <utility>

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

// An open recordset remembers the rows that were added to it: a fresh one now and then keeps the memory constant.
constexpr qint64 linhasPorConjunto = 10'000;

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

/// Adds postal codes at the end of the table.
class Gravador
{
public:
    explicit Gravador(dao::Database &banco) : banco_(banco) {}

    void grava(const QStringList &linha)
    {
        if (gravados_ % linhasPorConjunto == 0) {
            conjunto_.emplace(banco_.OpenRecordset(QString::fromUtf16(nomeDaTabela)));
        }
        conjunto_->AddNew();
        for (int i = 0; i < linha.size(); ++i) {
            if (!linha[i].isEmpty()) {
                (*conjunto_)[i] = linha[i];
            }
        }
        conjunto_->Update();
        ++gravados_;
    }

    qint64 gravados() const { return gravados_; }

private:
    dao::Database &banco_;
    std::optional<dao::Recordset> conjunto_;
    qint64 gravados_ = 0;
};

void avisa(const Andamento &andamento, const LeitorCSV &leitor, qint64 ceps)
{
    if (!andamento(leitor.porcento(), ceps)) {
        throw Erro(u"Interrompido."_s);
    }
}

void gravaLinhas(LeitorCSV &leitor, Gravador &gravador, const Andamento &andamento)
{
    bool primeira = true;
    while (const std::optional<QStringList> linha = leitor.proxima()) {
        if (std::exchange(primeira, false) && ehCabecalho(*linha)) {
            confereCabecalho(*linha, leitor.linha());
            continue;
        }
        gravador.grava(confere(*linha, leitor.linha()));
        if (gravador.gravados() % linhasPorAviso == 0) {
            avisa(andamento, leitor, gravador.gravados());
        }
    }
}

qint64 preenche(const QString &arquivo, QFile &entrada, Codificacao codificacao, const Andamento &andamento)
{
    const auto banco = dao::DBEngine::CreateDatabase(arquivo, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    banco->AppendTableDef(Tabela());
    LeitorCSV leitor(entrada, codificacao);
    const dao::Unit juntas;
    Gravador gravador(*banco);
    gravaLinhas(leitor, gravador, andamento);
    if (gravador.gravados() == 0) {
        throw Erro(u"O arquivo não tem nenhum CEP."_s);
    }
    avisa(andamento, leitor, gravador.gravados());
    return gravador.gravados();
}

void confereArquivos(const Pedido &pedido)
{
    const QFileInfo saida(pedido.saida);
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

std::error_code renomeia(const QString &arquivo, const Pedido &pedido)
{
    std::error_code erro;
    if (pedido.substitui) {
        std::filesystem::rename(QFileInfo(arquivo).filesystemFilePath(), QFileInfo(pedido.saida).filesystemFilePath(),
                                erro);
    } else if (!QFile::rename(arquivo, pedido.saida)) { // this one never replaces a file
        erro = std::make_error_code(std::errc::file_exists);
    }
    return erro;
}

void poeNoLugar(const QString &arquivo, const Pedido &pedido)
{
    if (const std::error_code erro = renomeia(arquivo, pedido)) {
        throw Erro(
            u"Não foi possível gravar '%1': %2"_s.arg(pedido.saida, QString::fromLocal8Bit(erro.message().c_str())));
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
    // Made in a folder beside its place and moved there when it is whole.
    const QTemporaryDir vizinha(QFileInfo(pedido.saida).absoluteDir().filePath(u"cep-XXXXXX"_s));
    if (!vizinha.isValid()) {
        throw Erro(u"Não foi possível gravar '%1': %2"_s.arg(pedido.saida, vizinha.errorString()));
    }
    const QString parcial = vizinha.filePath(u"CEP.MDB"_s);
    const qint64 ceps = preenche(parcial, entrada, pedido.codificacao, andamento);
    poeNoLugar(parcial, pedido);
    return ceps;
}

} // namespace ceps
