// Qt's own buttons speak Chinese wherever the program runs.
#include "QtTranslation.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

class TestQtChinese : public QObject
{
    Q_OBJECT
private slots:
    void standardButtonsReadChinese()
    {
        QVERIFY(lanzhou::LoadQtChineseTranslation(qApp));
        QMessageBox box(QMessageBox::Question, QString(), QStringLiteral("真的要删除这条记录吗？"),
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Ok | QMessageBox::Cancel);
        QVERIFY(box.button(QMessageBox::Yes)->text().startsWith(QStringLiteral("是")));
        QVERIFY(box.button(QMessageBox::No)->text().startsWith(QStringLiteral("否")));
        QVERIFY(box.button(QMessageBox::Ok)->text().startsWith(QStringLiteral("确定")));
        QVERIFY(box.button(QMessageBox::Cancel)->text().startsWith(QStringLiteral("取消")));
    }
};

QTEST_MAIN(TestQtChinese)
#include "tst_qt_chinese.moc"
