#include "tools/cep/csv.h"

#include "platform/runtime/text.h"

#include <QStringDecoder>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ceps
{

namespace
{

constexpr qint64 maiorLinha = 65'536;
constexpr QChar aspas = u'"';

/// Walks along one line, column by column.
class Cortador
{
public:
    Cortador(QStringView linha, QChar separador) : linha_(linha), separador_(separador) {}

    std::optional<QStringList> corta()
    {
        QStringList colunas;
        do {
            const std::optional<QString> coluna = comecaComAspas() ? comAspas() : semAspas();
            if (!coluna) {
                return std::nullopt;
            }
            colunas.append(coluna->trimmed());
        } while (passaSeparador());
        return colunas;
    }

private:
    bool acabou() const { return em_ >= linha_.size(); }

    bool comecaComAspas()
    {
        pulaBrancos();
        return !acabou() && linha_[em_] == aspas;
    }

    void pulaBrancos()
    {
        while (!acabou() && linha_[em_] != separador_ && linha_[em_].isSpace()) {
            ++em_;
        }
    }

    bool passaSeparador()
    {
        const bool outra = !acabou();
        ++em_;
        return outra;
    }

    QString semAspas()
    {
        const qsizetype fim = linha_.indexOf(separador_, em_);
        const qsizetype inicio = std::exchange(em_, fim < 0 ? linha_.size() : fim);
        return linha_.sliced(inicio, em_ - inicio).toString();
    }

    std::optional<QString> comAspas()
    {
        QString texto;
        do {
            const qsizetype fim = linha_.indexOf(aspas, em_ + 1);
            if (fim < 0) {
                return std::nullopt;
            }
            texto += linha_.sliced(em_ + 1, fim - em_ - 1);
            em_ = fim + 1;
        } while (aspasDobradas(texto));
        pulaBrancos();
        return acabou() || linha_[em_] == separador_ ? std::optional(texto) : std::nullopt;
    }

    /// A second quotation mark right behind the first: one that belongs to the text.
    bool aspasDobradas(QString &texto) const
    {
        const bool dobradas = !acabou() && linha_[em_] == aspas;
        if (dobradas) {
            texto += aspas;
        }
        return dobradas;
    }

    QStringView linha_;
    QChar separador_;
    qsizetype em_ = 0;
};

} // namespace

Erro::Erro(QString texto) : texto_(std::move(texto)), utf8_(texto_.toUtf8()) {}

Erro::Erro(int linha, const QString &motivo) : Erro(u"Linha %1: %2"_s.arg(linha).arg(motivo)) {}

std::optional<QStringList> separaColunas(QStringView linha, QChar separador)
{
    return Cortador(linha, separador).corta();
}

QChar separadorDe(QStringView linha)
{
    bool dentro = false;
    for (const QChar letra : linha) {
        dentro = dentro != (letra == aspas);
        if (letra == u';' && !dentro) {
            return letra;
        }
    }
    return u',';
}

LeitorCSV::LeitorCSV(QFileDevice &arquivo, Codificacao codificacao)
    : arquivo_(arquivo), codificacao_(codificacao), tamanho_(arquivo.size()), crua_(maiorLinha + 1, '\0')
{
}

std::optional<QStringList> LeitorCSV::proxima()
{
    while (const std::optional<QString> texto = leLinha()) {
        if (!texto->isEmpty()) {
            return colunas(*texto);
        }
    }
    return std::nullopt;
}

int LeitorCSV::porcento() const
{
    return tamanho_ > 0 ? static_cast<int>(std::min<qint64>(100, lidos_ * 100 / tamanho_)) : 0;
}

std::optional<QString> LeitorCSV::leLinha()
{
    const qint64 quantos = std::max<qint64>(0, arquivo_.readLine(crua_.data(), crua_.size()));
    const auto bytes = QByteArray::fromRawData(crua_.constData(), quantos);
    if (arquivo_.error() != QFileDevice::NoError) {
        throw Erro(u"A leitura do arquivo falhou: "_s + arquivo_.errorString());
    }
    if (bytes.isEmpty()) {
        return std::nullopt;
    }
    ++linha_;
    lidos_ += bytes.size();
    if (bytes.size() >= maiorLinha - 1 && !bytes.endsWith('\n')) {
        throw Erro(linha_, u"a linha é longa demais."_s);
    }
    return decodifica(bytes).trimmed();
}

QString LeitorCSV::decodifica(const QByteArray &bytes) const
{
    if (codificacao_ == Codificacao::Windows1252) {
        return runtime::fromWestern(bytes);
    }
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString texto = utf8(bytes);
    if (utf8.hasError()) {
        throw Erro(linha_, u"o texto não está em UTF-8 (para a página de código 1252 use --latin1)."_s);
    }
    return texto;
}

QStringList LeitorCSV::colunas(const QString &texto)
{
    if (separador_.isNull()) {
        separador_ = separadorDe(texto);
    }
    const std::optional<QStringList> cortadas = separaColunas(texto, separador_);
    if (!cortadas) {
        throw Erro(linha_, u"as aspas não fecham onde a coluna termina."_s);
    }
    return *cortadas;
}

} // namespace ceps
