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

// Solves L U x = e_k for every k at once, for a decomposition of DecomposeLU: x[i][k] receives
// entry i of solution k, so x is the inverse row by row. Each column is one solve: forward
// substitution with the row permutation, starting at the first non-zero entry of the permuted
// e_k (earlier rows contribute nothing), then back substitution dividing by the pivots. The N
// columns run side by side so their independent chains of operations overlap.
template <int N>
void SolveLUUnit(const double (&a)[N][N], const int (&perm)[N], double (&x)[N][N]) noexcept {
    for (int i = 0; i < N; ++i)
        for (int k = 0; k < N; ++k) x[i][k] = i == k ? 1.0 : 0.0;
    int first[N];
    for (int k = 0; k < N; ++k) first[k] = N;
    for (int i = 0; i < N; ++i) {
        const int p = perm[i];
        double sum[N];
        for (int k = 0; k < N; ++k) {
            sum[k] = x[p][k];
            x[p][k] = x[i][k];
        }
        for (int j = 0; j < i; ++j)
            for (int k = 0; k < N; ++k)
                if (j >= first[k]) sum[k] -= a[i][j] * x[j][k];
        for (int k = 0; k < N; ++k) {
            if (first[k] == N && sum[k] != 0.0) first[k] = i;
            x[i][k] = sum[k];
        }
    }
    for (int i = N - 1; i >= 0; --i) {
        double sum[N];
        for (int k = 0; k < N; ++k) sum[k] = x[i][k];
        for (int j = i + 1; j < N; ++j)
            for (int k = 0; k < N; ++k) sum[k] -= a[i][j] * x[j][k];
        for (int k = 0; k < N; ++k) x[i][k] = sum[k] / a[i][i];
    }
}

}  // namespace ztl_detail

#endif
