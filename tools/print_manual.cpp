// print_manual FROM.md TO.pdf
//
// Pictures are looked up beside the source, and fill the page's width at most.

#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextStream>
#include <QUrl>

namespace
{

struct Picture {
    int position;
    QTextImageFormat format;
};

QList<Picture> picturesIn(const QTextDocument& document)
{
    QList<Picture> pictures;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (fragment.charFormat().isImageFormat())
                pictures.append({fragment.position(), fragment.charFormat().toImageFormat()});
        }
    }
    return pictures;
}

// Returns the name of the first that can't be read; empty where all can.
QString fitPictures(QTextDocument& document, double pageWidth)
{
    QList<Picture> pictures = picturesIn(document);
    for (Picture& picture : pictures) {
        QTextImageFormat& format = picture.format;
        const QImage image(document.baseUrl().resolved(QUrl(format.name())).toLocalFile());
        if (image.isNull())
            return format.name();
        format.setWidth(qMin(pageWidth, double(image.width())));
        format.setHeight(format.width() * image.height() / image.width());
        QTextCursor cursor(&document);
        cursor.setPosition(picture.position);
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
    }
    return {};
}

} // namespace

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
    document.setBaseUrl(QUrl::fromLocalFile(QFileInfo(source).absoluteFilePath()));
    document.setMarkdown(QString::fromUtf8(source.readAll()));
    const QSizeF page = pdf.pageLayout().paintRectPixels(pdf.resolution()).size();
    document.setPageSize(page);
    const QString missing = fitPictures(document, page.width() - 2 * document.documentMargin());
    if (!missing.isEmpty()) {
        complaint << "cannot read the picture " << missing << '\n';
        return 1;
    }
    document.print(&pdf);
    return QFile(arguments[2]).size() > 0 ? 0 : 1;
}
