#!/usr/bin/env bash
# draw.sh [SEED [COUNT]]: draws one-token faults by a rule and prints them in the form of faults/set.
#
# Each room gets its share by the lines of its sources in which a fault can be, three at least; those of the windows
# count half, for much in them only places what they show. The kind is drawn
# first, every kind alike, then a line of those that can have it: a comparison or its end changed, plus and minus or
# times and through exchanged, && and || exchanged, a condition negated, true and false exchanged, a digit of a
# constant changed, a statement left out. Comments, texts in quotes, headers and the Windows halves are passed by,
# and what only paints or places: it would move a pixel. What faults/left_out names is drawn over; other rooms do not change.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
exec perl -w - "${1:-1}" "${2:-100}" <<'PERL'
use strict;
my ($seed, $count) = @ARGV;

my %rooms = (
  text => 'text', design => 'design', calc => 'calc', gcode => 'gcode', persist => 'persist',
  workbench => 'workbench/*', handoff => 'handoff', host => 'host/*',
  executor => 'executor/{program,machine,measure,proof,player}', dryrun => 'executor/{session,panel,view,window}',
  window => 'window/*', live => 'live', advice => 'advice', restart => 'restart', compare => 'compare',
  post => 'post/*', laminate => 'laminate/*');

my %swaps = (
  compare => {'<' => '<=', '<=' => '<', '>' => '>=', '>=' => '>', '==' => '!=', '!=' => '=='},
  sum => {'+' => '-', '-' => '+', '*' => '/', '/' => '*', '+=' => '-=', '-=' => '+='},
  logic => {'&&' => '||', '||' => '&&'},
  truth => {'true' => 'false', 'false' => 'true'});

# Quoted texts and comments, made blind at the same length.
sub blind {
  my ($text) = @_;
  $text =~ s{("(?:[^"\\]|\\.)*"|'(?:[^'\\]|\\.)+'(?!\w))}{"\x01" x length $1}ge;
  $text =~ s{//.*}{"\x01" x length $&}ge;
  return $text;
}

# All faults of a line, by kind.
sub faults_of {
  my ($line, $before, $after) = @_;
  my $blind = blind($line);
  my %found;
  return \%found if $blind =~ /^(#|\x01|\*|namespace|using|template|static_assert|struct|class|friend|extern)/;
  return \%found if $blind =~ /\b(p|painter|svg)\.\w+\(|Q(Rect|Point|Size|Color|Margins)|Font\(|Spacing|Margins|setGeometry|setFixed|\b(move|Line|Span)\(/;
  my $put = sub {
    my ($kind, $at, $length, $new) = @_;
    my $with = $line;
    substr($with, $at, $length) = $new;
    push @{$found{$kind}}, $with;
  };
  my $swap = sub {
    my ($kind, $sign) = @_;
    while ($blind =~ /$sign/g) { $put->($kind, $-[1], length $1, $swaps{$kind}{$1}); }
  };
  $swap->('compare', qr/(?<= )(<=|>=|==|!=|<|>)(?= |$)/);
  $swap->('sum', qr{(?<=[^\x01] )(\+=|-=|[-+*/])(?= [^\x01])});
  $swap->('logic', qr/(?<= )(&&|\|\|)(?= |$)/);
  $swap->('truth', qr/\b(true|false)\b/);
  while ($blind =~ /(?<![\w.'])(\d[\d.']*)(?!\w)/g) {
    my ($at, $number) = ($-[1], $1);
    my @digits = grep { substr($number, $_, 1) =~ /\d/ } 0 .. length($number) - 1;
    my $digit = $digits[int rand @digits];
    my $old = substr($number, $digit, 1);
    $put->('constant', $at + $digit, 1, $old == 9 ? 8 : $old + 1);
  }
  if ($blind =~ /^(?:\} else )?if \(((?:[^()]|(\((?:[^()]|(?2))*\)))*)\)/ && $1 !~ /;/) {
    my ($at, $length) = ($-[1], length $1);
    $put->('condition', $at, $length, '!(' . substr($line, $at, $length) . ')');
  }
  push @{$found{statement}}, ';'
    if $before =~ m{([;{}:]$)|^//} && $after !~ /^(\} )?else\b/ && $blind !~ /^(return|delete|throw)\b/ &&
      $blind =~ m{^(?:if \(.*\) .*|[\w.>:\-\[\]()]+(?:\(.*\)| [-+*/|&]?= .*));$};
  return \%found;
}

my %left_out;
if (open my $file, '<', 'tools/faults/left_out') {
  local $/ = undef;
  my $all = <$file>;
  $left_out{"$1\n$2\n$3"} = 1 while $all =~ /^\@ .*\n  ?(.*)\n- (.*)\n\+ (.*)\n/mg;
}

# Lines that are found again by themselves and the line before.
my (%known, %lines);
for my $room (sort keys %rooms) {
  for my $file (grep { !/_windows\.cpp$/ } sort map { glob "$_/*.cpp" } glob "src/$rooms{$room}") {
    open my $in, '<', $file or die "$file: $!";
    my @text = grep { $_ ne '' } map { s/^\s+|\s+$//gr } <$in>;
    for my $i (1 .. $#text) {
      ++$known{"$text[$i - 1]\n$text[$i]"};
      push @{$lines{$room}},
        {room => $room, file => $file, before => $text[$i - 1], line => $text[$i], after => $text[$i + 1] // ''};
    }
  }
}

my (%faults, %share);
my $all = 0;
for my $room (sort keys %lines) {
  my $sum = 0;
  $sum = ($sum * 31 + ord) % 65521 for split //, $room;
  srand $seed * 65521 + $sum;
  for my $line (grep { $known{"$_->{before}\n$_->{line}"} == 1 } @{$lines{$room}}) {
    my $found = faults_of(@$line{qw(line before after)});
    next unless %$found;
    my $lines = $room =~ m{^(window|dryrun)$} ? 0.5 : 1;
    $share{$room} += $lines;
    $all += $lines;
    push @{$faults{$room}{$_}}, [$line, $found->{$_}] for keys %$found;
  }
  # The generator's own state goes on into the draw, so each room is drawn by itself.
  $faults{$room}{seed} = int rand 2**31;
}

$_ = $count * $_ / $all for values %share;
my %number = map { $_ => $share{$_} < 3 ? 3 : int $share{$_} } keys %share;
my @by_rest = sort { ($share{$b} - $number{$b}) <=> ($share{$a} - $number{$a}) || $a cmp $b } keys %share;
my $given = 0;
$given += $_ for values %number;
for (my $i = 0; $given < $count; ++$i, ++$given) { ++$number{$by_rest[$i % @by_rest]}; }
for (my $i = $#by_rest; $given > $count; $i = ($i || @by_rest) - 1) {
  next if $number{$by_rest[$i]} <= 3;
  --$number{$by_rest[$i]};
  --$given;
}

for my $room (sort keys %faults) {
  srand delete $faults{$room}{seed};
  my @kinds = sort keys %{$faults{$room}};
  my (%drawn, $tries);
  for (my $left = $number{$room}; $left > 0 && ++$tries < 10_000;) {
    my $kind = $kinds[int rand @kinds];
    my $of_kind = $faults{$room}{$kind};
    my ($line, $found) = @{$of_kind->[int rand @$of_kind]};
    my $with = $found->[int rand @$found];
    my $place = "$line->{before}\n$line->{line}";
    next if $drawn{$place} || $left_out{"$place\n$with"};
    $drawn{$place} = 1;
    print "\@ $room $line->{file} $kind\n  $line->{before}\n- $line->{line}\n+ $with\n";
    --$left;
  }
}
PERL
