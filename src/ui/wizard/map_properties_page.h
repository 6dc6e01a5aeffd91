#pragma once

#include <QString>

#include "map/types/map_size_limits.h"
#include "ui/wizard/property_page.h"

class QSlider;

namespace quorvel {

/// The wizard's first page for a new map: width and height in cells, each chosen with a slider.
class CWizMapProperties : public CPropertyPage {
  Q_OBJECT

 public:
  CWizMapProperties();

  QString Purpose() const override;

  /// Limits for the sliders and the size to start with; called before the wizard runs.
  void SetSizeLimits(int minWidth, int minHeight, int maxWidth, int maxHeight, int defaultWidth,
                     int defaultHeight);

  /// In cells; what the wizard's Finish leaves.
  int GetWidth() const { return m_nWidth; }
  int GetHeight() const { return m_nHeight; }

 protected:
  void OnInitDialog() override;
  void DoDataExchange(Exchange direction) override;

 private:
  void ConnectSlider(int sliderId, int editId);

  QString m_strMinHeight, m_strMinWidth, m_strMaxHeight, m_strMaxWidth;
  int m_nWidth = 0;
  int m_nHeight = 0;
  int m_nHeightPos = 0;
  int m_nWidthPos = 0;
};

}  // namespace quorvel
