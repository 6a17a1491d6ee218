#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class Start;
}

namespace lanzhou {

// The splash shown while the program starts.
class Start : public QWidget
{
    Q_OBJECT
public:
    explicit Start(QWidget* parent = nullptr);
    ~Start() override;

private:
    std::unique_ptr<Ui::Start> ui;
};

} // namespace lanzhou
