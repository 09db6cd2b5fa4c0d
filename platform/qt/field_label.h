// FieldLabel: the label in front of a control. Groups one below the other have their controls in one line.
#pragma once

#include <QLabel>

#include <memory>
#include <vector>

namespace ostrand::qt {

class FieldLabel final : public QLabel {
public:
    using QLabel::QLabel;
    /// The labels of several groups, this one among them.
    using Groups = std::vector<std::vector<const FieldLabel*>>;

    /// Takes the width of the widest label of all, unless the groups differ too much for that.
    void AlignWith(std::shared_ptr<const Groups> groups) { m_groups = std::move(groups); }

    QSize sizeHint() const override { return Aligned(QLabel::sizeHint()); }
    QSize minimumSizeHint() const override { return Aligned(QLabel::minimumSizeHint()); }

private:
    QSize Aligned(QSize own) const;

    std::shared_ptr<const Groups> m_groups;
};

} // namespace ostrand::qt
