#pragma once

#include <QString>
#include <QStringView>

/// A text of any make seen as UTF-16 units, for comparisons without making a QString.
class TreeTextView
{
public:
    TreeTextView(QStringView text) : m_wide(text.utf16()), m_length(text.size()) {}
    TreeTextView(const uchar* latin1, qsizetype length) : m_narrow(latin1), m_length(length) {}

    [[nodiscard]] qsizetype Length() const { return m_length; }
    /// The letters where all are Latin-1 and kept as such, else null.
    [[nodiscard]] const uchar* Latin1() const { return m_narrow; }
    [[nodiscard]] char16_t Unit(qsizetype at) const { return m_narrow ? m_narrow[at] : m_wide[at]; }
    [[nodiscard]] TreeTextView Left(qsizetype length) const;
    [[nodiscard]] QString ToString() const;

    /// Case-folded unit; the second half of a surrogate pair gives the folded character of the pair.
    [[nodiscard]] char32_t Folded(qsizetype at) const;
    /// Equal for texts that compare equal without case.
    [[nodiscard]] quint32 FoldedHash() const;

    /// Below 0, 0, above 0, as QString::compare with Qt::CaseInsensitive.
    [[nodiscard]] static int CompareFolded(const TreeTextView& left, const TreeTextView& right);
    /// Without case, then exactly: 0 only for equal texts.
    [[nodiscard]] static int Compare(const TreeTextView& left, const TreeTextView& right);
    [[nodiscard]] bool StartsWithFolded(const TreeTextView& prefix) const;

private:
    [[nodiscard]] static int CompareExact(const TreeTextView& left, const TreeTextView& right);

    const uchar* m_narrow = nullptr;
    const char16_t* m_wide = nullptr;
    qsizetype m_length = 0;
};

/// A text in 24 bytes: short ones in place, one byte a character where all are Latin-1; others in a block.
class TreeText
{
public:
    TreeText() { m_bytes[FormByte] = 0; }
    explicit TreeText(QStringView text);
    ~TreeText() { Free(); }
    TreeText(const TreeText&) = delete;
    TreeText& operator=(const TreeText&) = delete;
    TreeText(TreeText&& other) noexcept;
    TreeText& operator=(TreeText&& other) noexcept;

    [[nodiscard]] TreeTextView View() const
    {
        const uchar form = m_bytes[FormByte];
        return form < WideForm ? TreeTextView(m_bytes, form) : WideView();
    }
    /// Bytes held outside of the 24.
    [[nodiscard]] qint64 BlockBytes() const;

private:
    struct Block
    {
        uchar* data;
        quint32 length;
        bool latin1;
    };

    void Free();
    [[nodiscard]] TreeTextView WideView() const;
    [[nodiscard]] Block BlockOf() const;

    static constexpr int Size = 24;
    static constexpr int FormByte = Size - 1;
    /// Form: 0 to 22 is the length of Latin-1 in place; from WideForm on, that plus the length of UTF-16.
    static constexpr uchar WideForm = 64;
    static constexpr uchar BlockForm = 255;

    alignas(8) uchar m_bytes[Size];
};
