// The demonstration's chapter of the papers that customers keep: the two quote sheets, and the invoice
// accounts with a payment and their two papers. PDFs go to the folder, pictures of the pages among the
// pictures.
#pragma once

#include "demo/operator.h"

namespace demo {

void PlayCustomerPapers(Operator& op, const QString& folder);

}  // namespace demo
