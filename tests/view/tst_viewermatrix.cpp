#include <guicore/view/ViewerMatrix.h>

#include <QRegularExpression>
#include <QTest>

#include <array>

class tst_ViewerMatrix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void replacingKeepsThePlace();
    void lookupByPosition();
    void sizesAreLargestIndices_data();
    void sizesAreLargestIndices();
    void copiesAreIndependent();

private:
    // The matrix never dereferences its viewers, so distinct addresses stand in for the
    // application's viewers.
    ViewerBase* viewer(int i) { return reinterpret_cast<ViewerBase*>(&m_slots[size_t(i)]); }
    std::array<int, 8> m_slots {};
};

void tst_ViewerMatrix::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_ViewerMatrix::replacingKeepsThePlace()
{
    ViewerMatrix matrix;
    matrix.addViewer(1, 1, viewer(0));
    matrix.addViewer(1, 2, viewer(1));
    matrix.addViewer(1, 1, viewer(2));
    QCOMPARE(matrix.getViewersWithIndex().size(), size_t(2));
    QCOMPARE(matrix.getViewers(), (std::vector<ViewerBase*> {viewer(2), viewer(1)}));
    QCOMPARE(matrix.getViewer(1, 1), viewer(2));

    // Null viewers are entries like any other.
    matrix.addViewer(2, 1, nullptr);
    QCOMPARE(matrix.getViewers(), (std::vector<ViewerBase*> {viewer(2), viewer(1), nullptr}));
    QCOMPARE(matrix.numberOfRows(), 2);
}

void tst_ViewerMatrix::lookupByPosition()
{
    ViewerMatrix matrix;
    QVERIFY(!matrix.getViewer(1, 1));
    matrix.addViewer(2, 3, viewer(0));
    matrix.addViewer(3, 2, viewer(1));
    QCOMPARE(matrix.getViewer(2, 3), viewer(0));
    QCOMPARE(matrix.getViewer(3, 2), viewer(1));
    QVERIFY(!matrix.getViewer(2, 2));
    const ViewerMatrix::ViewerWithIndex& second = matrix.getViewersWithIndex().at(1);
    QCOMPARE(second.row, 3);
    QCOMPARE(second.column, 2);
    QCOMPARE(second.viewer, viewer(1));
}

void tst_ViewerMatrix::sizesAreLargestIndices_data()
{
    using Cells = QList<QPoint>; // x is the row, y the column
    QTest::addColumn<Cells>("cells");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("columnsInRow");
    QTest::addColumn<int>("rows");

    const Cells gapped {{1, 1}, {1, 3}, {2, 1}};
    QTest::newRow("gap counts to the largest column") << gapped << 1 << 3 << 2;
    QTest::newRow("second row") << gapped << 2 << 1 << 2;
    QTest::newRow("row without entries") << gapped << 5 << 0 << 2;
    QTest::newRow("empty") << Cells {} << 1 << 0 << 0;
    QTest::newRow("zero-based is not a count") << Cells {{0, 0}, {0, 1}, {1, 0}} << 0 << 1 << 1;
    QTest::newRow("only row zero") << Cells {{0, 0}} << 0 << 0 << 0;
    QTest::newRow("rows out of order") << Cells {{3, 1}, {1, 1}, {2, 4}} << 2 << 4 << 3;
    QTest::newRow("negative columns") << Cells {{1, -2}, {1, -1}} << 1 << -1 << 1;
}

void tst_ViewerMatrix::sizesAreLargestIndices()
{
    QFETCH(QList<QPoint>, cells);
    QFETCH(int, row);
    QFETCH(int, columnsInRow);
    QFETCH(int, rows);

    ViewerMatrix matrix;
    for (int i = 0; i < cells.size(); ++i)
        matrix.addViewer(cells[i].x(), cells[i].y(), viewer(i));
    QCOMPARE(matrix.numberOfColumnsInRow(row), columnsInRow);
    QCOMPARE(matrix.numberOfRows(), rows);
}

void tst_ViewerMatrix::copiesAreIndependent()
{
    ViewerMatrix matrix;
    matrix.addViewer(1, 1, viewer(0));
    ViewerMatrix copy(matrix);
    copy.addViewer(1, 1, viewer(1));
    copy.addViewer(4, 1, viewer(2));
    QCOMPARE(matrix.getViewer(1, 1), viewer(0));
    QCOMPARE(matrix.numberOfRows(), 1);

    ViewerMatrix assigned;
    assigned = copy;
    QCOMPARE(assigned.getViewers(), copy.getViewers());
}

QTEST_MAIN(tst_ViewerMatrix)
#include "tst_viewermatrix.moc"
