#pragma once

#include <QString>

#include <vector>

class ModelDatabase;

/// The connection types that the browser offers, in its own order, each with a picture.
class ConOrderClass
{
public:
    static constexpr int MaxRows = 20;
    /// Picture of every type that is not offered.
    static constexpr int UnknownPicture = 14;

    /// False when the table is full; nothing is stored then.
    bool AddItem(const QString& shortName, const QString& longName, int resourcePosition, int browserPosition,
                 int pictureIndex);
    /// The last row with that position counts; UnknownPicture when there is none.
    [[nodiscard]] int GetPicIndxByBrowserPos(int position) const;
    [[nodiscard]] int GetPicIndxByResourcePos(int position) const;
    /// Fills the table. `order`: positions in the database's type list, from 0, separated by commas;
    /// `pictures`: their picture indices. False: a look-up failed or the table is full; rows so far stay.
    bool LoadConTypesInOrder(ModelDatabase& database, const QString& order, const QString& pictures);
    [[nodiscard]] int ConnectionCount() const { return static_cast<int>(m_rows.size()); }
    /// Row from 1; raises IndexError outside 1 to 20, empty behind the last row.
    [[nodiscard]] QString LongName(int row) const;

private:
    struct Row
    {
        QString shortName;
        QString longName;
        int resourcePosition;
        int browserPosition;
        int pictureIndex;
    };
    std::vector<Row> m_rows;
};
