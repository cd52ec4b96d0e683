// SPDX-License-Identifier: MIT
#include <curveeditor/shell/EditorState.h>

#include <QDataStream>
#include <QIODevice>

#include <cmath>

namespace curveeditor {

namespace {

constexpr quint32 mark = 0x43764564; // "CvEd"
constexpr quint16 version = 2;       // 1 ended behind the values
constexpr QDataStream::Version format = QDataStream::Qt_6_0;

QDataStream& operator<<(QDataStream& out, const AxisRange& range)
{
    return out << range.low << range.high;
}

QDataStream& operator>>(QDataStream& in, AxisRange& range)
{
    return in >> range.low >> range.high;
}

bool canBeShown(const AxisRange& range)
{
    return range.span() > 0.0 && std::isfinite(range.span());
}

/// Whether all of it was there, and nothing else.
bool isRead(const QDataStream& in)
{
    return in.status() == QDataStream::Ok && in.atEnd();
}

} // namespace

QByteArray EditorState::bytes() const
{
    QByteArray content;
    QDataStream inner(&content, QIODevice::WriteOnly);
    inner.setVersion(format);
    inner << columns << rows << qint32(page) << snaps << quint32(snapKinds) << editsAllCurves << showsFrames
          << times << values << alignsHandles << hasOwnScale << showsSpeed;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(format);
    out << mark << version << qChecksum(content) << content;
    return bytes;
}

std::optional<EditorState> EditorState::read(const QByteArray& bytes)
{
    QDataStream in(bytes);
    in.setVersion(format);
    quint32 foundMark = 0;
    quint16 foundVersion = 0;
    quint16 sum = 0;
    QByteArray content;
    in >> foundMark >> foundVersion >> sum >> content;
    if (!isRead(in) || foundMark != mark || foundVersion == 0 || foundVersion > version ||
        sum != qChecksum(content))
        return std::nullopt;

    EditorState state;
    qint32 page = 0;
    quint32 kinds = 0;
    QDataStream inner(content);
    inner.setVersion(format);
    inner >> state.columns >> state.rows >> page >> state.snaps >> kinds >> state.editsAllCurves >>
        state.showsFrames >> state.times >> state.values;
    if (foundVersion >= 2)
        inner >> state.alignsHandles >> state.hasOwnScale >> state.showsSpeed;
    state.page = page;
    state.snapKinds = kinds;
    const bool isSound = isRead(inner) && canBeShown(state.times) && canBeShown(state.values);
    return isSound ? std::optional(state) : std::nullopt;
}

} // namespace curveeditor
