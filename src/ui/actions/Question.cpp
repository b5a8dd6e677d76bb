#include "Question.h"

#include <QCoreApplication>
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
    // The toolkit's own word is in the user's language only if its translations are installed. A key that is held or
    // pressed twice does not agree to its own question.
    box->setDefaultButton(
        box->addButton(QCoreApplication::translate("nookle::Question", "Cancel"), QMessageBox::RejectRole));
    QObject::connect(agree, &QPushButton::clicked, agree, [proceed] { proceed(); });
    box.release()->show();
}

} // namespace nookle
