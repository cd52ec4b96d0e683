// SPDX-License-Identifier: MIT
#pragma once

#include "PlaneRange.h"

#include <QObject>

#include <memory>

class CurveEditor;
class CurveStore;
struct Curve;

/// Keeps one editor and the curves of a store in step: registers them all, opens, renames and removes them.
/// It owns the editor, unless a parent widget has deleted that before; the store must outlive both.
class EditorHost : public QObject
{
    Q_OBJECT

public:
    /// The editor is made as a child of `parent`, and not shown.
    explicit EditorHost(CurveStore& store, QWidget* parent = nullptr);
    ~EditorHost() override;

    CurveEditor& getEditor() { return *editor_; }

    /// Puts the curve on the canvas, makes it current and shows its range.
    void open(Curve& curve);
    bool isOpen(const Curve& curve) const;

    /// Limits the editor to the range of the curve, unless it is shown already.
    void showRange(const Curve& curve);
    /// What the host has limited the editor to last.
    PlaneRange getRange() const { return range_; }

    /// Returns false, and changes nothing, if the store refuses the name.
    bool rename(Curve& curve, const QString& newName);
    /// Takes the curve out of the editor, then out of the store, which frees it.
    void remove(Curve& curve);

Q_SIGNALS:
    void rangeChanged();

private:
    CurveStore& store_;
    std::unique_ptr<CurveEditor> editor_;
    PlaneRange range_;
};
