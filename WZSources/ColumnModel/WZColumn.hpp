// The width model of one column. A column is either fixed (it keeps its width while there is
// room) or proportional (it takes a share of the room in proportion to its current width).
// No column is made narrower than its minimum width while the minimums fit.
#pragma once

namespace WZ {

class IColumn {
public:
    virtual bool IsFixed() const = 0;
    // The narrowest the column may become while there is room.
    virtual float GetMinWidth() const = 0;
    // The width a distribution starts from.
    virtual float GetInitialWidth() const = 0;
    virtual float GetWidth() const = 0;
    virtual void SetWidth(float width) = 0;
    virtual ~IColumn();
};

// Shared state of the two column kinds: a minimum width and the current width, which is also the
// width a distribution starts from.
class SizedColumn : public IColumn {
public:
    explicit SizedColumn(float width) : minWidth(width), width(width) {}
    SizedColumn(float minWidth, float width) : minWidth(minWidth), width(width) {}

    float GetMinWidth() const override { return minWidth; }
    float GetInitialWidth() const override { return width; }
    float GetWidth() const override { return width; }
    void SetWidth(float newWidth) override { width = newWidth; }

private:
    float minWidth;
    float width;
};

class FixedColumn : public SizedColumn {
public:
    using SizedColumn::SizedColumn;
    bool IsFixed() const override { return true; }
};

// Grows and shrinks with the room. Its share follows its current width, so once it has been held
// at its minimum its later shares are computed from that minimum.
class ProportionalColumn : public SizedColumn {
public:
    using SizedColumn::SizedColumn;
    bool IsFixed() const override { return false; }
};

}  // namespace WZ
