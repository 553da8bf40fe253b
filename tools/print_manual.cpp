// print_manual FROM.md TO.pdf

#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTextDocument>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    QTextStream complaint(stderr);
    if (arguments.size() != 3) {
        complaint << "usage: print_manual FROM.md TO.pdf\n";
        return 64;
    }
    QFile source(arguments[1]);
    if (!source.open(QIODevice::ReadOnly)) {
        complaint << arguments[1] << ": " << source.errorString() << '\n';
        return 1;
    }

    QPdfWriter pdf(arguments[2]);
    pdf.setTitle(QStringLiteral("J-Sum Editor manual"));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF(22, 22, 22, 22), QPageLayout::Millimeter);
    pdf.setResolution(96);

    QTextDocument document;
    QFont font(QStringLiteral("URW Gothic"), 10);
    font.setFamilies({QStringLiteral("URW Gothic"), QStringLiteral("DejaVu Sans")});
    document.setDefaultFont(font);
    document.setMarkdown(QString::fromUtf8(source.readAll()));
    document.setPageSize(pdf.pageLayout().paintRectPixels(pdf.resolution()).size());
    document.print(&pdf);
    return QFile(arguments[2]).size() > 0 ? 0 : 1;
}
