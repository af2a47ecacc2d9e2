#include "platform/desktop/links.h"

#include "testmain.h"

class LinksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyHarmlessKindsMayBeOpened()
    {
        for (const char* one : {"http://a.b", "HTTPS://a.b/c?d#e", "ftp://a.b/c", "mailto:a@b?subject=x",
                                "file:///etc/hosts", "file://localhost/etc/hosts"})
            QVERIFY2(links::MayOpen(QString::fromUtf8(one)), one);
        for (const char* one : {"", "x:y", "javascript:x", "data:text/html,x", "/bin/sh", "C:\\a", "\\\\server\\a",
                                "file://server/a", "file:////server/a", "file:a", "http:a.b", "http://known.org@a.b",
                                "mailto:a", "mailto:a@b?ATTACH=/etc/passwd"})
            QVERIFY2(!links::MayOpen(QString::fromUtf8(one)), one);
    }

    void whatIsShownCannotDeceive()
    {
        QCOMPARE(links::Shown(u"http://\u0430\u0440\u0440.com/\u202ex"_s), u"http://xn--80a6aa.com/%E2%80%AEx"_s);
        QCOMPARE(links::Shown(u"http://a.b/"_s + QString(200, u'c')).size(), 103);
    }
};

ORRELIN_TEST(LinksTest)
#include "linkstest.moc"
