// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit/Elements/FormElementDetailActionButton.h"
#include "FormKit_macOS/Elements/FormDetailBase.h"
#include "ToolKit/Views/PlatformToolTip.h"

#include <QPointer>

namespace quor::formkit {

/// A small button that is on or off. A click shows the tool tip of the new state for a moment, in the row
/// above; it is also there while the pointer rests on the button.
///
/// Images come from the application's bundle. One whose name ends with "Template" is a mask that is shown in
/// the colour of texts. Without an image for on, that for off is shown.
class FormDetailActionButton final : public FormDetailBase, public FormElementDetailActionButton {
public:
    FormDetailActionButton();
    ~FormDetailActionButton() override;

    [[nodiscard]] std::optional<QString> offImageName() const override { return offImageName_; }
    void setOffImageName(const std::optional<QString>& name) override;
    [[nodiscard]] std::optional<QString> onImageName() const override { return onImageName_; }
    void setOnImageName(const std::optional<QString>& name) override;
    [[nodiscard]] std::optional<QString> title() const override { return title_; }
    void setTitle(const std::optional<QString>& title) override;
    [[nodiscard]] bool isOn() const override { return isOn_; }
    void setOn(bool isOn) override;
    [[nodiscard]] QString isOnToolTip() const override { return isOnToolTip_; }
    void setIsOnToolTip(const QString& toolTip) override;

    /// The tool tip that a click has shown. Null after 0.8 seconds.
    [[nodiscard]] toolkit::PlatformToolTip* platformToolTip() const { return platformToolTip_; }

protected:
    void updateButton() override;

private:
    void clicked();
    void showToolTip();
    [[nodiscard]] QString shownToolTip() const { return isOn_ ? isOnToolTip_ : toolTip(); }

    QPointer<toolkit::PlatformToolTip> platformToolTip_;
    std::optional<QString> offImageName_;
    std::optional<QString> onImageName_;
    std::optional<QString> title_;
    bool isOn_ = false;
    QString isOnToolTip_;
};

} // namespace quor::formkit
