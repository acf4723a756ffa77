#include "window/dialog/program_dialog.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace torvane {

namespace {

constexpr int kPatience = 500;  // milliseconds before the dialog shows
constexpr int kBetweenLooks = 50;
constexpr int kSteps = 1000;

}  // namespace

ProgramDialog::ProgramDialog(const Theme& theme) : theme_(theme) {}

ProgramDialog::~ProgramDialog() = default;

void ProgramDialog::Begin() {
  busy_ = true;
  cancelled_ = false;
  since_.start();
  shown_.start();
}

bool ProgramDialog::GoOn(double share) {
  if (since_.elapsed() < kPatience || (dialog_ && shown_.elapsed() < kBetweenLooks)) return !cancelled_;
  if (!dialog_) Open();
  bar_->setValue(static_cast<int>(share * kSteps));
  QApplication::processEvents();
  shown_.start();
  return !cancelled_;
}

void ProgramDialog::End() {
  dialog_.reset();
  bar_ = nullptr;
  busy_ = false;
}

void ProgramDialog::Open() {
  dialog_ = std::make_unique<QDialog>(QApplication::activeWindow());
  dialog_->setObjectName(QStringLiteral("frmProgram"));
  dialog_->setWindowTitle(QStringLiteral("Torvane Designer"));
  dialog_->setWindowModality(Qt::ApplicationModal);
  dialog_->setPalette(theme_.Palette());
  auto* rows = new QVBoxLayout(dialog_.get());
  rows->setContentsMargins(22, 20, 22, 12);
  rows->setSpacing(14);
  auto* words = new QLabel(QStringLiteral("The program is being written. Cancel leaves the former one."));
  words->setFont(theme_.Font(15));
  rows->addWidget(words);
  bar_ = new QProgressBar;
  bar_->setRange(0, kSteps);
  bar_->setMinimumWidth(536);
  bar_->setAccessibleName(QStringLiteral("Share of the program that is written"));
  rows->addWidget(bar_);
  auto* cancel = new QPushButton(QStringLiteral("Cancel"));
  cancel->setObjectName(QStringLiteral("btnCancel"));
  cancel->setFixedSize(118, 42);
  cancel->setFont(theme_.Font(14, Weight::Medium));
  rows->addWidget(cancel, 0, Qt::AlignRight);
  QObject::connect(cancel, &QPushButton::clicked, dialog_.get(), &QDialog::reject);
  // The dialog stays until the writing has come to its next look.
  QObject::connect(dialog_.get(), &QDialog::rejected, dialog_.get(), [this] { cancelled_ = true; });
  dialog_->show();
}

}  // namespace torvane
