#include "librarytext.h"
#include "testcase.h"

#include <QJsonDocument>

class TestLibraryText : public TestCase
{
    Q_OBJECT

    static QByteArray wanted(const QVariantMap& library)
    {
        return QJsonDocument::fromVariant(library).toJson(QJsonDocument::Indented);
    }

private slots:
    void sameBytes()
    {
        // JSON in single quotes, to be readable here.
        for (QByteArray json :
             {"{'Preset_000':{'preset_name':'\\'50%2\\' \\\\ mix\\n\\u0001\\t/'},"
              "'Preset_001':{'preset_name':'Größe 音 😀 \\uD800'}}",
              "{'Preset_000':{'a':1e300,'b':0.1,'c':-0.0,'d':9007199254740993,"
              "'e':18446744073709551615,'f':3000.0,'g':true,'h':null}}",
              "{'Preset_000':{},'Preset_001':{'x':{},'y':[],'z':[1,{'a':[{}]}]},"
              "'Preset_002':[{'q':1}],'Preset_003':null,'Preset_004':'text'}",
              // Beyond the first plane the order by UTF-16 is not that of the code points.
              "{'':{'':1},'\\'k\\\\ey\\'':{'a':1},'😀':{'😀':1,'\\uFFFD':2},"
              "'\\uFFFD':2,'Preset_1':3}"}) {
            const QJsonDocument document = QJsonDocument::fromJson(json.replace('\'', '"'));
            QVERIFY(document.isObject());
            QVariantMap library = document.toVariant().toMap();
            LibraryText text;
            QCOMPARE(text.textOf(library), wanted(library));
            library.insert("Preset_000", QVariantMap{{"preset_name", "changed"}});
            QCOMPARE(text.textOf(library), wanted(library)); // of the rest from what was kept
        }
    }

    void followsChanges()
    {
        QVariantMap library;
        for (int i = 0; i < 5; ++i)
            library.insert(QString("Preset_00%1").arg(i),
                           QVariantMap{{"preset_name", i}, {"x", i}});
        LibraryText text;
        text.textOf(library);

        // In place, through the variant that holds the map: the kept map must have kept its own
        // data.
        static_cast<QVariantMap*>(library["Preset_001"].data())->insert("x", 77);
        QCOMPARE(text.textOf(library), wanted(library));
        library.insert("Preset_000", library.take("Preset_004"));
        QCOMPARE(text.textOf(library), wanted(library));
        // Of what is no longer there nothing is kept.
        const QVariantMap old{{"preset_name", "old"}};
        for (const QVariantMap& preset : {old, QVariantMap{{"preset_name", "new"}}}) {
            library.insert("Preset_000", preset);
            QCOMPARE(text.textOf(library), wanted(library));
        }
        QVERIFY(old.isDetached());
        library.clear();
        QCOMPARE(text.textOf(library), QByteArray("{\n}\n"));
    }
};

QTEST_GUILESS_MAIN(TestLibraryText)
#include "tst_librarytext.moc"
