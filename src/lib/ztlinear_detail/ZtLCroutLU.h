#ifndef ZTLINEAR_DETAIL_ZTLCROUTLU_H
#define ZTLINEAR_DETAIL_ZTLCROUTLU_H

// Crout's LU decomposition with implicit partial pivoting for the N x N matrices of the library
// (the general path of the 3x3 and 4x4 inverses). Private to the library.

#include <cmath>

namespace ztl_detail {

// Decomposes a in place: each row is weighed by the reciprocal of its largest absolute entry when
// choosing pivots, and among equal candidates the later row is the pivot. Returns false for a
// singular matrix (an all-zero row or an exactly zero pivot); no tiny substitute is used.
template <int N>
bool DecomposeLU(double (&a)[N][N], int (&perm)[N]) noexcept {
    double weight[N];
    for (int i = 0; i < N; ++i) {
        double big = 0.0;
        for (int j = 0; j < N; ++j) {
            const double v = std::fabs(a[i][j]);
            if (v > big) big = v;
        }
        if (big == 0.0) return false;
        weight[i] = 1.0 / big;
    }
    for (int j = 0; j < N; ++j) {
        for (int i = 0; i < j; ++i) {
            double sum = a[i][j];
            for (int k = 0; k < i; ++k) sum -= a[i][k] * a[k][j];
            a[i][j] = sum;
        }
        double big = 0.0;
        int pivot = j;
        for (int i = j; i < N; ++i) {
            double sum = a[i][j];
            for (int k = 0; k < j; ++k) sum -= a[i][k] * a[k][j];
            a[i][j] = sum;
            const double merit = weight[i] * std::fabs(sum);
            if (merit >= big) {
                big = merit;
                pivot = i;
            }
        }
        if (pivot != j) {
            for (int k = 0; k < N; ++k) {
                const double t = a[pivot][k];
                a[pivot][k] = a[j][k];
                a[j][k] = t;
            }
            weight[pivot] = weight[j];
        }
        perm[j] = pivot;
        if (a[j][j] == 0.0) return false;
        for (int i = j + 1; i < N; ++i) a[i][j] /= a[j][j];
    }
    return true;
}

// Solves L U x = b in place for a decomposition of DecomposeLU: forward substitution with the row
// permutation, starting at the first non-zero entry of the permuted b, then back substitution.
template <int N>
void SolveLU(const double (&a)[N][N], const int (&perm)[N], double (&b)[N]) noexcept {
    int first = -1;
    for (int i = 0; i < N; ++i) {
        const int p = perm[i];
        double sum = b[p];
        b[p] = b[i];
        if (first >= 0) {
            for (int j = first; j < i; ++j) sum -= a[i][j] * b[j];
        } else if (sum != 0.0) {
            first = i;
        }
        b[i] = sum;
    }
    for (int i = N - 1; i >= 0; --i) {
        double sum = b[i];
        for (int j = i + 1; j < N; ++j) sum -= a[i][j] * b[j];
        b[i] = sum / a[i][i];
    }
}

}  // namespace ztl_detail

#endif
