#pragma once

#include <QTextBrowser>

namespace shell
{

/// The user's manual, one file with its pictures inside. It is shown in colours of the program's own, light or dark;
/// nothing besides that file is ever read, from the disk or from a net. Alt and the left arrow go back.
class PaginaManual : public QTextBrowser
{
    Q_OBJECT

public:
    explicit PaginaManual(QWidget *parent = nullptr);

    /// Shows the section of a file that has this anchor; the top where there is none. To be called on a visible window,
    /// as the place depends on its width.
    void mostra(const QString &arquivo, const QString &secao);

    /// Goes to the next place of a text, without regard to case; behind the last one to the first. False for none.
    bool localiza(const QString &texto);

    QVariant loadResource(int type, const QUrl &name) override;

private:
    void segue(const QUrl &elo);
    void vaiPara(const QUrl &endereco);
    int lugarDe(const QString &ancora) const;
};

} // namespace shell
