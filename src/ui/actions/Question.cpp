#include "Question.h"

#include <QMessageBox>
#include <QPushButton>

#include <memory>

namespace nookle {

void askInWindow(const QString& question, const QString& agreement, const std::function<void()>& proceed)
{
    auto box = std::make_unique<QMessageBox>();
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIcon(QMessageBox::Question);
    box->setTextFormat(Qt::PlainText);
    box->setWindowTitle(QStringLiteral("Nookle"));
    box->setText(question);
    const QPushButton* agree = box->addButton(agreement, QMessageBox::AcceptRole);
    box->addButton(QMessageBox::Cancel);
    QObject::connect(agree, &QPushButton::clicked, agree, [proceed] { proceed(); });
    box.release()->show();
}

} // namespace nookle
